#pragma once

#include "qt/controls/elided_label.h"

class QAccessibleInterface;

namespace chromalog {

/// The status line: one line of plain text that moves nothing. Assistive technology is told of what it says.
class StatusLabel : public ElidedLabel {
    Q_OBJECT
  public:
    using ElidedLabel::ElidedLabel;
    void announce(); ///< after its text has changed
    /// Says something that the label does not show.
    void announceAloud(const QString&);
    const QString& aloud() const { return aloud_; }

  private:
    void tell();

    QString aloud_; ///< until the text changes
};

/// For the toolkit's list of factories: a status line is a notification of that name.
QAccessibleInterface* makeStatusAccessible(const QString& key, QObject*);

} // namespace chromalog
