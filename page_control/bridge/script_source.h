#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <string_view>

#include "page_control/injected/protocol.h"

namespace tarvik {

// Writes native values as JavaScript, for evaluation in a page.

// A string literal that preserves every UTF-16 code unit, unpaired surrogates and zeros included.
std::string ScriptText(std::wstring_view text);

std::string ScriptNumber(double value);

// `fields` are separated by commas.
std::string TaggedValue(protocol::Name<protocol::Kind::kHostValue> tag, std::string_view fields);

// Writes an object, never null.
using ObjectWriter = std::string (*)(void* context, IUnknown* object);

// Writes any automation value. Arrays of one dimension become arrays. A value without a counterpart in
// script, like an array of more dimensions, becomes undefined.
std::string ScriptValue(const VARIANT& value, ObjectWriter writeObject, void* context);

}  // namespace tarvik
