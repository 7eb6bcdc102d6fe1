#pragma once

#include "desktop/qt/controls/widget_control.h"

#include <QLabel>
#include <QLineEdit>
#include <QObject>

#include <optional>

namespace chromalog {

/// An editable field. While a person types in it, it keeps their text; at the end of editing (focus lost,
/// Return) it shows what was last set meanwhile. A first Return ends editing; only the next one reaches the
/// dialog's OK button. A search field (one with an onReturn) keeps Return for itself, and Escape clears it
/// before it closes the dialog.
class FieldControl : public QObject, public WidgetControl<TextField, QLineEdit> {
  public:
    explicit FieldControl(QLineEdit*);

    void setText(std::string_view) override;
    std::string text() const override;
    bool editing() const { return editing_; }

  protected:
    bool eventFilter(QObject*, QEvent*) override;

  private:
    void endEditing();
    bool returnPressed(); ///< true where the key was used up
    bool escapePressed();

    bool editing_ = false;
    std::optional<QString> pending_; ///< set by the program while a person was typing
};

/// A label; its whole text is also its tool tip, as a long one is cut. What it is given is never markup.
class LabelControl : public WidgetControl<TextField, QLabel> {
  public:
    explicit LabelControl(QLabel*);
    void setText(std::string_view) override;
    std::string text() const override;
};

} // namespace chromalog
