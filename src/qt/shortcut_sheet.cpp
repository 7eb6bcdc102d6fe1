#include "qt/shortcut_sheet.h"

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
    lines.append(Line{"Tab, Shift+Tab", "Next and previous control"});
    lines.append(Line{"Alt+letter", "The control with that letter underlined"});
    lines.append(Line{"Return", "End typing in a field; then OK"});
    lines.append(Line{"Escape", "Cancel; in a search field with text, clear it"});
    lines.append(Line{"F1", "This sheet"});
    return lines;
}

QList<Section> sections() {
    return {
        {"Everywhere", everywhere()},
        {"In a list",
         {{"Up, Down", "Select the next swatch, with Shift the tenth"},
          {"Page Up, Page Down", "A page of swatches up or down"},
          {"Home, End", "First and last swatch"},
          {"Return", "Use the swatch as first color"},
          {"F2", "Rename the swatch; a double click does too"},
          {"Delete", "Delete the swatch, or all that are selected"},
          {"Alt+Up, Alt+Down", "Move the swatch, or all that are selected"},
          {"Ctrl+A", "Select all; Escape: one again"},
          {"Ctrl+Shift+Up, Down, Home, End", "Select more; with the mouse Shift or Ctrl"},
          {"Menu", "The swatch's menu"}}},
        {"In a number field",
         {{"Up, Down", "One more or less, with Shift ten; the wheel of the mouse too"},
          {"Ctrl+Z", "While typing: undo the typing"}}},
        {"On the wheel, the strip and the charts",
         {{"Arrows", "Move the color by one step, with Shift by ten"},
          {"Page Up, Page Down", "Strip and charts: ten steps"},
          {"Home, End", "Strip and charts: to the ends"},
          {"Space", "Chart: pick the same cell again"}}},
        {"On a picture",
         {{"Arrows", "Move by one pixel, with Shift by 16"}, {"Return", "Take the color for the second"}}},
        {"On a color",
         {{"Ctrl+C", "Copy, in a list and on the wheel and the charts too"},
          {"Ctrl+V", "First and second color, lists: paste a color or a text with colors"},
          {"Insert", "Add to list 1, with Alt to list 2; a double click on a well too"},
          {"Space", "Offered color: make it the second color again"},
          {"Menu", "The color's menu"}}},
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
        QLabel* title = textLabel(QObject::tr(section.title), page);
        QFont strong = title->font();
        strong.setBold(true);
        title->setFont(strong);
        rows->addRow(title);
        for (const Line& line : section.lines)
            rows->addRow(textLabel(line.keys, page), textLabel(QObject::tr(line.says), page));
    }
    return page;
}

QDialog* makeSheet(QWidget& window) {
    auto* sheet = new QDialog(&window);
    sheet->setObjectName("shortcutSheet");
    sheet->setWindowTitle(QObject::tr("Keyboard Shortcuts"));
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(sheet);
    auto* scroll = new QScrollArea(sheet);
    scroll->setAccessibleName(QObject::tr("Keys and what they do"));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::StrongFocus); // to be scrolled by keys
    scroll->setFocus();
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(contents(scroll));
    scroll->setMinimumWidth(scroll->widget()->sizeHint().width() +
                            scroll->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 8);
    column->addWidget(scroll);
    column->addWidget(textLabel(QObject::tr("Colors are sRGB, shown unmanaged."), sheet));
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
