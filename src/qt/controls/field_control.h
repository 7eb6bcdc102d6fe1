#pragma once

#include "qt/controls/widget_control.h"

#include <QLabel>
#include <QLineEdit>
#include <QObject>

#include <optional>

class QKeyEvent;

namespace chromalog {

/// An editable field. It counts as edited from a person's edit on, for as long as it is its dialog's focus
/// widget, whether or not the window is active, and keeps their text; at the end of editing (the focus goes
/// elsewhere, Return) it shows what was set since the last edit. A first Return ends editing; only the next
/// one reaches the dialog's OK button. A search field (one with a Return of its own) keeps Return for itself,
/// and Escape clears it before it closes the dialog. No field takes drops: what is dragged here are colours,
/// and the names beside them.
class FieldControl : public QObject, public WidgetControl<TextField, QLineEdit> {
  public:
    explicit FieldControl(QLineEdit*);

    void setText(std::string_view) override;
    std::string text() const override;
    bool editing() const; ///< a person's edit is not over
    void whenEdited(std::function<void()> f) override { onEdit_ = std::move(f); }
    void whenEditingEnds(std::function<void()> f) override { onEndEditing_ = std::move(f); }
    void whenReturnPressed(std::function<void()> f) override { onReturn_ = std::move(f); }
    void setFault(std::string_view) override; ///< a CompactField only
    void whenStepped(std::function<void(int)> f) override { onStep_ = std::move(f); }

  protected:
    bool eventFilter(QObject*, QEvent*) override;

  private:
    bool isFocusOfItsDialog() const;
    void endEditing();
    bool returnPressed(); ///< true where the key was used up
    bool escapePressed();
    bool leavesToTheDialog(QKeyEvent&) const; ///< true where the key undoes or redoes

    bool edited_ = false;            ///< by a person, and not ended
    std::optional<QString> pending_; ///< set by the program since the last edit
    std::function<void()> onEdit_, onEndEditing_, onReturn_;
    std::function<void(int)> onStep_;
};

/// A label; its whole text is also its tool tip, as a long one is cut. What it is given is never markup.
class LabelControl : public WidgetControl<TextField, QLabel> {
  public:
    explicit LabelControl(QLabel*);
    void setText(std::string_view) override;
    std::string text() const override;
};

} // namespace chromalog
