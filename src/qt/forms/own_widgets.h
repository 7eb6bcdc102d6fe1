#pragma once

#include <QString>

class QWidget;

namespace chromalog {

/// A widget of ours by the name that interface files give its class, or null where that is none of ours. The
/// caller owns one without a parent.
QWidget* makeOwnWidget(const QString& className, QWidget* parent);

} // namespace chromalog
