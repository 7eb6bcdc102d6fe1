#pragma once

namespace chromalog {

class ViewWidget;

void installViewAccessibility();
void removeViewAccessibility();

/// Tells assistive technology that the view's value, name or rows changed.
void announceView(ViewWidget&);

} // namespace chromalog
