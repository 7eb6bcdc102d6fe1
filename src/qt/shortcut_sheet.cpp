#include "qt/shortcut_sheet.h"

#include "base/translated.h"
#include "qt/convert.h"
#include "qt/shortcuts.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace chromalog {

namespace {

struct Line {
    const char* keys;
    const char* says;
};

struct Section {
    const char* title;
    QList<Line> lines;
};

QList<Line> everywhere() {
    QList<Line> lines;
    for (const Shortcut& shortcut : shortcuts())
        lines.append(Line{shortcut.keys, shortcut.says});
    lines.append(Line{translatable("Tab, Shift+Tab"), translatable("Next and previous control")});
    lines.append(Line{translatable("Alt+letter"), translatable("The control with that letter underlined")});
    lines.append(Line{translatable("Return"), translatable("End typing in a field; then OK")});
    lines.append(Line{translatable("Escape"), translatable("Cancel; in a search field with text, clear it")});
    lines.append(Line{"F1", translatable("This sheet")});
    return lines;
}

QList<Section> sections() {
    return {
        {translatable("Everywhere"), everywhere()},
        {translatable("In a list"),
         {{translatable("Up, Down"), translatable("Select the next swatch, with Shift the tenth")},
          {translatable("Page Up, Page Down"), translatable("A page of swatches up or down")},
          {translatable("Home, End"), translatable("First and last swatch")},
          {translatable("Return"), translatable("Use the swatch as first color")},
          {"F2", translatable("Rename the swatch; a double click does too")},
          {translatable("Delete"), translatable("Delete the swatch, or all that are selected")},
          {translatable("Alt+Up, Alt+Down"), translatable("Move the swatch, or all that are selected")},
          {translatable("Ctrl+A"), translatable("Select all; Escape: one again")},
          {translatable("Ctrl+Shift+Up, Down, Home, End"),
           translatable("Select more; with the mouse Shift or Ctrl")},
          {translatable("Menu"), translatable("The swatch's menu")}}},
        {translatable("In a number field"),
         {{translatable("Up, Down"),
           translatable("One more or less, with Shift ten; the wheel of the mouse too")},
          {translatable("Ctrl+Z"), translatable("While typing: undo the typing")}}},
        {translatable("On the wheel, the strip and the charts"),
         {{translatable("Arrows"), translatable("Move the color by one step, with Shift by ten")},
          {translatable("Page Up, Page Down"), translatable("Strip and charts: ten steps")},
          {translatable("Home, End"), translatable("Strip and charts: to the ends")},
          {translatable("Space"), translatable("Chart: pick the same cell again")}}},
        {translatable("On a picture"),
         {{translatable("Arrows"), translatable("Move by one pixel, with Shift by 16")},
          {translatable("Return"), translatable("Take the color for the second")}}},
        {translatable("On a color"),
         {{translatable("Ctrl+C"), translatable("Copy, in a list and on the wheel and the charts too")},
          {translatable("Ctrl+V"),
           translatable("First and second color, lists: paste a color or a text with colors")},
          {translatable("Insert"),
           translatable("Add to list 1, with Alt to list 2; a double click on a well too")},
          {translatable("Space"), translatable("Offered color: make it the second color again")},
          {translatable("Menu"), translatable("The color's menu")}}},
    };
}

QLabel* textLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QWidget* contents(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* rows = new QFormLayout(page);
    rows->setLabelAlignment(Qt::AlignLeft);
    rows->setHorizontalSpacing(24);
    rows->setVerticalSpacing(2);
    for (const Section& section : sections()) {
        QLabel* title = textLabel(toQt(translated(section.title)), page);
        QFont strong = title->font();
        strong.setBold(true);
        title->setFont(strong);
        rows->addRow(title);
        for (const Line& line : section.lines)
            rows->addRow(textLabel(toQt(translated(line.keys)), page),
                         textLabel(toQt(translated(line.says)), page));
    }
    return page;
}

QDialog* makeSheet(QWidget& window) {
    auto* sheet = new QDialog(&window);
    sheet->setObjectName("shortcutSheet");
    sheet->setWindowTitle(toQt(translated("Keyboard Shortcuts")));
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(sheet);
    auto* scroll = new QScrollArea(sheet);
    scroll->setAccessibleName(toQt(translated("Keys and what they do")));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::StrongFocus); // to be scrolled by keys
    scroll->setFocus();
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(contents(scroll));
    scroll->setMinimumWidth(scroll->widget()->sizeHint().width() +
                            scroll->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 8);
    column->addWidget(scroll);
    column->addWidget(textLabel(toQt(translated("Colors are sRGB, shown unmanaged.")), sheet));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, sheet);
    column->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::rejected, sheet, &QDialog::reject);
    // Not every window system gives the keyboard back by itself.
    QObject::connect(sheet, &QDialog::finished, &window, [&window] { window.activateWindow(); });
    const int wanted = scroll->widget()->sizeHint().height() + buttons->sizeHint().height() + 72;
    sheet->resize(sheet->sizeHint().width(),
                  std::min(wanted, window.screen()->availableGeometry().height() - 64));
    return sheet;
}

} // namespace

void showShortcutSheet(QWidget& window) {
    auto* sheet = window.findChild<QDialog*>("shortcutSheet");
    if (!sheet) sheet = makeSheet(window);
    sheet->open();
    sheet->raise();
    sheet->activateWindow();
}

} // namespace chromalog
