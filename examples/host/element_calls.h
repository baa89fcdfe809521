// What to call for an element of a JSON drawing.
#pragma once

#include <functional>
#include <string>

#include "json_element.h"

/// The call of the flat function that writes an element of that class. Raises DrawingError.
std::function<void()> elementCall(const std::string& className, JsonElement& element);

/// The call that pushes one frame of a series. Raises DrawingError.
std::function<void()> frameCall(JsonElement& frame);
