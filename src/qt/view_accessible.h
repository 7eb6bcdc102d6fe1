#pragma once

namespace chromalog {

class ViewWidget;

/// Before the first widget is made, and after the last is gone: the toolkit calls into this module in
/// between.
void installAccessibility();
void removeAccessibility();

/// Tells assistive technology that the view's value, name or rows changed.
void announceView(ViewWidget&);

} // namespace chromalog
