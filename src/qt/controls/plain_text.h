#pragma once

#include <QObject>
#include <QString>

class QMessageBox;

namespace chromalog {

/// The tool tip that shows a text from outside as it stands. Names of swatches and files are never markup:
/// one could make the toolkit read whatever file it names, without an end.
QString plainToolTip(const QString& text);

/// The informative text of a box as it stands; its text format is that of the main text alone.
void setPlainInformativeText(QMessageBox&, const QString& text);

/// While it lives, every label below our windows is plain before it is first laid out: also those of the
/// boxes that the toolkit opens by itself ("… already exists"). Tool tips are left to plainToolTip.
class PlainLabels : public QObject {
  public:
    PlainLabels();

  protected:
    bool eventFilter(QObject*, QEvent*) override;
};

} // namespace chromalog
