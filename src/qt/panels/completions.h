#pragma once

#include <QObject>

class QKeyEvent;

namespace chromalog {

/// Completions of paths, in the panels of our own dialogs and those that they open, as long as this lives.
/// The toolkit shows them when their folder has been read, whenever that is. They come up neither after their
/// panel nor while it asks something: they would lie over the dialog or the question and take its next click.
/// And Return confirms what was typed whether or not they have come up; they take it only where one of them
/// was chosen.
class Completions : public QObject {
  public:
    Completions();

  protected:
    bool eventFilter(QObject*, QEvent*) override;

  private:
    static void end(QObject& field);
    static bool keyPressed(QObject& receiver, const QKeyEvent&);
};

} // namespace chromalog
