// Commands of the keyboard, controls that are set to a value, drops from outside, and the paper.
#include "drive/command_error.h"
#include "drive/commands.h"
#include "drive/hand_over.h"
#include "drive/keyboard.h"
#include "drive/locate.h"
#include "drive/paper.h"
#include "qt/driven_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QListWidget>
#include <QMimeData>
#include <QRadioButton>
#include <QSlider>
#include <QToolButton>
#include <QUrl>

#include <cmath>

namespace chromalog::drive {
namespace {

QWidget& focusOn(QWidget& outlet) {
    outlet.activateWindow();
    outlet.setFocus(Qt::OtherFocusReason);
    if (outlet.window()->focusWidget() != &outlet)
        throw CommandError{fromQt(outlet.objectName()) + " does not take the focus"};
    return *outlet.window();
}

const KeyStroke kSelectAll{Qt::Key_A, Qt::ControlModifier, {}};
const KeyStroke kDelete{Qt::Key_Delete, Qt::NoModifier, "\x7f"};
const KeyStroke kEnd{Qt::Key_End, Qt::NoModifier, {}};

CommandError cannotBe(const QWidget& control, double value) {
    return {fromQt(control.objectName()) + " cannot be set to " + fromQt(QString::number(value))};
}

/// By the keys that a slider knows, as near as each takes it.
void setSlider(QSlider& slider, double value) {
    if (value < slider.minimum() || value > slider.maximum() || value != std::round(value))
        throw cannotBe(slider, value);
    QWidget& window = focusOn(slider);
    const int target = static_cast<int>(value);
    while (slider.value() != target) {
        const int before = slider.value();
        const int way = target - before;
        const bool page = std::abs(way) >= slider.pageStep() && slider.pageStep() > 0;
        const Qt::Key up = page ? Qt::Key_PageUp : Qt::Key_Up;
        const Qt::Key down = page ? Qt::Key_PageDown : Qt::Key_Down;
        strike(window, {way > 0 ? up : down, Qt::NoModifier, {}});
        if (slider.value() == before) throw cannotBe(slider, value);
    }
}

/// By its arrows, the shorter way without wrapping.
void setStepper(QWidget& stepper, double value) {
    const auto number = [&stepper](const char* name) { return stepper.property(name).toDouble(); };
    const double most = (number("maximum") - number("minimum")) / number("increment") + 1;
    for (double steps = 0; number("value") != value; ++steps) {
        const char* arrow = value > number("value") ? "qt_stepForwards" : "qt_stepBackwards";
        auto* button = stepper.findChild<QToolButton*>(arrow);
        if (!button || !stepper.isEnabled() || !(steps < most)) throw cannotBe(stepper, value);
        click(middleOf(*button));
    }
}

void setButton(QAbstractButton& button, double value) {
    if (!button.isCheckable() || (value != 0 && value != 1)) throw cannotBe(button, value);
    if (button.isChecked() != (value == 1)) click(boxOf(button));
    if (button.isChecked() != (value == 1)) throw cannotBe(button, value);
}

void setMatrix(QWidget& matrix, double value) {
    const auto rows = matrix.findChildren<QRadioButton*>();
    if (!(value >= 0 && value < rows.size()) || value != std::floor(value)) throw cannotBe(matrix, value);
    QRadioButton& row = *rows[qsizetype(value)];
    click(boxOf(row));
}

void setRow(QListWidget& list, double value) {
    if (!(value >= 0 && value < list.count()) || value != std::floor(value)) throw cannotBe(list, value);
    QListWidgetItem* item = list.item(int(value));
    list.scrollToItem(item);
    click({list.viewport(), QRectF(list.visualItemRect(item)).center()});
}

} // namespace

void Commands::set(const Command& c) {
    QWidget& outlet = reachableOutlet(c.text(0));
    const double value = c.number(1);
    if (auto* slider = qobject_cast<QSlider*>(&outlet)) return setSlider(*slider, value);
    if (outlet.inherits(kStepperClass)) return setStepper(outlet, value);
    if (auto* button = qobject_cast<QAbstractButton*>(&outlet)) return setButton(*button, value);
    if (auto* list = qobject_cast<QListWidget*>(&outlet)) return setRow(*list, value);
    setMatrix(outlet, value);
}

void Commands::type(const Command& c) {
    QWidget& window = focusOn(reachableOutlet(c.text(0)));
    strike(window, kSelectAll);
    if (c.text(1).empty())
        strike(window, kDelete);
    else
        typeText(window, toQt(c.text(1)));
}

void Commands::append(const Command& c) {
    QWidget& window = focusOn(reachableOutlet(c.text(0)));
    strike(window, kEnd);
    typeText(window, toQt(c.text(1)));
}

/// As another program would: a text and no more, a line a word.
void Commands::clip(const Command& c) {
    std::string text;
    for (const std::string& line : c.words)
        text.append(text.empty() ? "" : "\n").append(line);
    QGuiApplication::clipboard()->setText(toQt(text));
}

void Commands::key(const Command& c) {
    const auto stroke = readKey(c.text(0));
    if (!stroke) throw CommandError{"unknown key '" + c.text(0) + "'"};
    QWidget* window = c.has(1) ? &focusOn(reachableOutlet(c.text(1))) : QApplication::activeWindow();
    if (!window) window = QApplication::activeModalWidget();
    if (!window) throw CommandError{"no window takes keys"};
    const auto before = dialog_.keyboard();
    if (stroke->modifiers) dialog_.keyboard() = [keys = stroke->modifiers] { return keys; };
    strike(*window, *stroke);
    dialog_.keyboard() = before;
}

/// Colours in other spaces than RGB go through the host, as the colour that a pick is offered.
Colour Commands::rgbOf(const WrittenColour& written) const {
    const auto& c = written.components;
    const double alpha = written.alpha / 65535.0;
    if (written.space == 0) return Colour::rgb(c[0] / 65535.0, c[1] / 65535.0, c[2] / 65535.0, alpha);
    std::int16_t eight[4];
    for (int i = 0; i < 4; ++i)
        eight[i] = static_cast<std::int16_t>(c[i] >> 8);
    dialog_.hostToRgb(written.space, eight);
    return Colour::rgb(eight[0] / 255.0, eight[1] / 255.0, eight[2] / 255.0, alpha);
}

void Commands::drop(const Command& c) {
    const PointerTarget target = targetOf(reachableOutlet(c.text(0)), c.point(1));
    QMimeData data; // as another program offers it: no exact doubles, no source
    data.setColorData(toQt(rgbOf(c.colour(3))));
    if (c.has(4)) data.setText(toQt(c.text(4)));
    offer(data, target);
}

void Commands::dropFile(const Command& c) {
    const PointerTarget target = targetOf(reachableOutlet(c.text(0)), c.point(1));
    QList<QUrl> files;
    for (std::size_t i = 3; c.has(i); ++i)
        files.append(QUrl::fromLocalFile(QFileInfo(toQt(c.text(i))).absoluteFilePath()));
    QMimeData data;
    data.setUrls(files);
    // dropfile is older than Import: kept, with the key that loads a swatch file at once.
    const auto held = c.verb == Verb::dropfile ? Qt::ShiftModifier : Qt::NoModifier;
    if (offer(data, target, held) == Qt::IgnoreAction)
        throw CommandError{c.text(0) + " takes no file '" + c.text(3) + "'"};
}

void Commands::paper(const Command& c) {
    dialog_.sharedPrintInfo() = *readPaper(c.words);
}

} // namespace chromalog::drive
