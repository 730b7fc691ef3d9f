#pragma once

namespace tarvik {

// Runs in every page before the page's own script. Pages depend on every name and statement in it.
inline constexpr const wchar_t* kPrologue =
    L"function queryModule(pluginName){return window.external[pluginName];} "
    L"console = queryModule('console');"
    L"_alert = window.alert; "
    L"try{window.alert = function(content,icon,title){"
    L"queryModule('window').messageBox({caption:title ? title : queryModule('window').title,"
    L"text:String(content),icon:icon});}}catch(e){}"
    L"function loadPlugin(path){return window.external.loadPlugin(path);}"
    L"function createWindow(param){return window.external.createWindow(param);}"
    L"function abort(){queryModule('system').abort();}";

}  // namespace tarvik
