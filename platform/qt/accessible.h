#pragma once

#include <string>

namespace klopfmeise {

class FormWidget;

/// Has assistive technology see forms, frames and picture boxes with their drawn labels and pictures. Nothing
/// is made before such a technology asks.
void installAccessibility();

/// Tells assistive technology when the character to type next is another than `told`, which is brought up to
/// date.
void announceTarget(FormWidget& form, std::wstring& told);

} // namespace klopfmeise
