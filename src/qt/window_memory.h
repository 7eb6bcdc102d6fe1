#pragma once

#include <QJsonObject>
#include <QObject>
#include <QRect>

#include <optional>
#include <string>

class QDialog;

namespace chromalog {

/// Opens the dialog for a person as they left it: size, place, folded and unfolded sections and the surround
/// last from pick to pick in the settings file. It is the window's child. What is stored is clamped to what
/// the screen has.
class WindowMemory : public QObject {
  public:
    /// Restores at once, stores when the window is hidden. An empty path is no memory: the window is only
    /// clamped to its screen.
    WindowMemory(QDialog& window, std::string settingsPath);

    bool eventFilter(QObject*, QEvent*) override;

  private:
    void restorePlace(const QJsonObject& settings);
    void restoreFolds(const QJsonObject& settings);
    void store();

    QDialog& window_; ///< the parent
    const std::string path_;
    QStringList foldedAtFirst_; ///< items that the form has unchecked
};

/// A window of that size and place, both perhaps missing or anywhere, within a screen's free part as far as
/// it fits.
QRect heldTo(const QRect& available, QSize size, std::optional<QPoint> place);

} // namespace chromalog
