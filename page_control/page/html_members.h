#pragma once

#include <windows.h>
#include <mshtml.h>

// Members of published interfaces that return E_NOTIMPL. The page control overrides those it implements.
namespace tarvik {

class DocumentMembers : public IHTMLDocument2 {
  public:
    STDMETHODIMP get_Script(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP get_all(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_body(IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP get_activeElement(IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP get_images(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_applets(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_links(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_forms(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_anchors(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP put_title(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_title(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_scripts(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP put_designMode(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_designMode(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_selection(IHTMLSelectionObject**) override { return E_NOTIMPL; }
    STDMETHODIMP get_readyState(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_frames(IHTMLFramesCollection2**) override { return E_NOTIMPL; }
    STDMETHODIMP get_embeds(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_plugins(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP put_alinkColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_alinkColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_bgColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_bgColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_fgColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_fgColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_linkColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_linkColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_vlinkColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_vlinkColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_referrer(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_location(IHTMLLocation**) override { return E_NOTIMPL; }
    STDMETHODIMP get_lastModified(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_URL(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_URL(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_domain(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_domain(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_cookie(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_cookie(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_expando(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_expando(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_charset(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_charset(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_defaultCharset(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_defaultCharset(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_mimeType(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_fileSize(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_fileCreatedDate(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_fileModifiedDate(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_fileUpdatedDate(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_security(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_protocol(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_nameProp(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP write(SAFEARRAY*) override { return E_NOTIMPL; }
    STDMETHODIMP writeln(SAFEARRAY*) override { return E_NOTIMPL; }
    STDMETHODIMP open(BSTR, VARIANT, VARIANT, VARIANT, IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP close() override { return E_NOTIMPL; }
    STDMETHODIMP clear() override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandSupported(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandEnabled(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandState(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandIndeterm(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandText(BSTR, BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandValue(BSTR, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP execCommand(BSTR, VARIANT_BOOL, VARIANT, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP execCommandShowHelp(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP createElement(BSTR, IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP put_onhelp(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onhelp(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onclick(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onclick(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ondblclick(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_ondblclick(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onkeyup(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onkeyup(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onkeydown(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onkeydown(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onkeypress(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onkeypress(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmouseup(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmouseup(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmousedown(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmousedown(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmousemove(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmousemove(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmouseout(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmouseout(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmouseover(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmouseover(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onreadystatechange(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onreadystatechange(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onafterupdate(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onafterupdate(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onrowexit(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onrowexit(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onrowenter(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onrowenter(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ondragstart(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_ondragstart(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onselectstart(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onselectstart(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP elementFromPoint(LONG, LONG, IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP get_parentWindow(IHTMLWindow2**) override { return E_NOTIMPL; }
    STDMETHODIMP get_styleSheets(IHTMLStyleSheetsCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP put_onbeforeupdate(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onbeforeupdate(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onerrorupdate(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onerrorupdate(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP toString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP createStyleSheet(BSTR, LONG, IHTMLStyleSheet**) override { return E_NOTIMPL; }
};

class WindowMembers : public IHTMLWindow2 {
  public:
    STDMETHODIMP item(VARIANT*, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_length(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_frames(IHTMLFramesCollection2**) override { return E_NOTIMPL; }
    STDMETHODIMP put_defaultStatus(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_defaultStatus(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_status(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_status(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP setTimeout(BSTR, LONG, VARIANT*, LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP clearTimeout(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP alert(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP confirm(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP prompt(BSTR, BSTR, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Image(IHTMLImageElementFactory**) override { return E_NOTIMPL; }
    STDMETHODIMP get_location(IHTMLLocation**) override { return E_NOTIMPL; }
    STDMETHODIMP get_history(IOmHistory**) override { return E_NOTIMPL; }
    STDMETHODIMP close() override { return E_NOTIMPL; }
    STDMETHODIMP put_opener(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_opener(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_navigator(IOmNavigator**) override { return E_NOTIMPL; }
    STDMETHODIMP put_name(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_name(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_parent(IHTMLWindow2**) override { return E_NOTIMPL; }
    STDMETHODIMP open(BSTR, BSTR, BSTR, VARIANT_BOOL, IHTMLWindow2**) override { return E_NOTIMPL; }
    STDMETHODIMP get_self(IHTMLWindow2**) override { return E_NOTIMPL; }
    STDMETHODIMP get_top(IHTMLWindow2**) override { return E_NOTIMPL; }
    STDMETHODIMP get_window(IHTMLWindow2**) override { return E_NOTIMPL; }
    STDMETHODIMP navigate(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP put_onfocus(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onfocus(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onblur(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onblur(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onload(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onload(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onbeforeunload(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onbeforeunload(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onunload(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onunload(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onhelp(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onhelp(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onerror(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onerror(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onresize(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onresize(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onscroll(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onscroll(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_document(IHTMLDocument2**) override { return E_NOTIMPL; }
    STDMETHODIMP get_event(IHTMLEventObj**) override { return E_NOTIMPL; }
    STDMETHODIMP get__newEnum(IUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP showModalDialog(BSTR, VARIANT*, VARIANT*, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP showHelp(BSTR, VARIANT, BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_screen(IHTMLScreen**) override { return E_NOTIMPL; }
    STDMETHODIMP get_Option(IHTMLOptionElementFactory**) override { return E_NOTIMPL; }
    STDMETHODIMP focus() override { return E_NOTIMPL; }
    STDMETHODIMP get_closed(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP blur() override { return E_NOTIMPL; }
    STDMETHODIMP scroll(LONG, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP get_clientInformation(IOmNavigator**) override { return E_NOTIMPL; }
    STDMETHODIMP setInterval(BSTR, LONG, VARIANT*, LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP clearInterval(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP put_offscreenBuffering(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_offscreenBuffering(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP execScript(BSTR, BSTR, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP toString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP scrollBy(LONG, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP scrollTo(LONG, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP moveTo(LONG, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP moveBy(LONG, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP resizeTo(LONG, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP resizeBy(LONG, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP get_external(IDispatch**) override { return E_NOTIMPL; }
};

class ElementMembers : public IHTMLElement {
  public:
    STDMETHODIMP setAttribute(BSTR, VARIANT, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP getAttribute(BSTR, LONG, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP removeAttribute(BSTR, LONG, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_className(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_className(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_id(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_id(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_tagName(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_parentElement(IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP get_style(IHTMLStyle**) override { return E_NOTIMPL; }
    STDMETHODIMP put_onhelp(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onhelp(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onclick(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onclick(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ondblclick(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_ondblclick(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onkeydown(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onkeydown(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onkeyup(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onkeyup(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onkeypress(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onkeypress(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmouseout(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmouseout(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmouseover(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmouseover(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmousemove(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmousemove(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmousedown(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmousedown(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmouseup(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmouseup(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_document(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP put_title(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_title(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_language(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_language(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onselectstart(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onselectstart(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP scrollIntoView(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP contains(IHTMLElement*, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP get_sourceIndex(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_recordNumber(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_lang(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_lang(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_offsetLeft(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_offsetTop(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_offsetWidth(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_offsetHeight(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_offsetParent(IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP put_innerHTML(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_innerHTML(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_innerText(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_innerText(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_outerHTML(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_outerHTML(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_outerText(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_outerText(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP insertAdjacentHTML(BSTR, BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP insertAdjacentText(BSTR, BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_parentTextEdit(IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP get_isTextEdit(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP click() override { return E_NOTIMPL; }
    STDMETHODIMP get_filters(IHTMLFiltersCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP put_ondragstart(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_ondragstart(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP toString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onbeforeupdate(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onbeforeupdate(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onafterupdate(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onafterupdate(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onerrorupdate(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onerrorupdate(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onrowexit(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onrowexit(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onrowenter(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onrowenter(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ondatasetchanged(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_ondatasetchanged(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ondataavailable(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_ondataavailable(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ondatasetcomplete(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_ondatasetcomplete(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onfilterchange(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onfilterchange(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_children(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP get_all(IDispatch**) override { return E_NOTIMPL; }
};

}  // namespace tarvik
