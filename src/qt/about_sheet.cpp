#include "qt/about_sheet.h"

#include "base/translated.h"
#include "qt/convert.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QIcon>
#include <QImageReader>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace chromalog {
namespace {

constexpr int kIconSize = 64;

QLabel* textLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel* strongLabel(const QString& text, QWidget* parent) {
    QLabel* label = textLabel(text, parent);
    QFont strong = label->font();
    strong.setBold(true);
    label->setFont(strong);
    return label;
}

/// A text that is scrolled and copied from by keys; Tab leaves it.
QPlainTextEdit* notices(QWidget* parent) {
    QFile file(":/chromalog/notices.txt");
    auto* text = new QPlainTextEdit(parent);
    if (file.open(QIODevice::ReadOnly)) text->setPlainText(QString::fromUtf8(file.readAll()));
    text->setObjectName("notices");
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setAccessibleName(toQt(translated("Third-party notices")));
    return text;
}

QLayout* heading(QWidget* sheet) {
    auto* row = new QHBoxLayout;
    auto* picture = new QLabel(sheet);
    picture->setPixmap(productIcon().pixmap(QSize(kIconSize, kIconSize), sheet->devicePixelRatioF()));
    row->addWidget(picture);
    auto* column = new QVBoxLayout;
    column->addWidget(strongLabel("Chromalog " CHROMALOG_VERSION, sheet));
    column->addWidget(textLabel(toQt(translated("Compose colors, find harmonies and keep swatches")), sheet));
    column->addWidget(textLabel(toQt(translated("Colors are sRGB, shown unmanaged.")), sheet));
    row->addLayout(column, 1);
    return row;
}

QDialog* makeSheet(QWidget& window) {
    auto* sheet = new QDialog(&window);
    sheet->setObjectName("aboutSheet");
    sheet->setWindowTitle(toQt(translated("About Chromalog")));
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(sheet);
    column->addLayout(heading(sheet));
    column->addWidget(strongLabel(toQt(translated("Third-party notices")), sheet));
    QPlainTextEdit* text = notices(sheet);
    column->addWidget(text, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, sheet);
    column->addWidget(buttons);
    text->setFocus(); // to be scrolled by keys
    QObject::connect(buttons, &QDialogButtonBox::rejected, sheet, &QDialog::reject);
    // Not every window system gives the keyboard back by itself.
    QObject::connect(sheet, &QDialog::finished, &window, [&window] { window.activateWindow(); });
    const QSize room = window.screen()->availableGeometry().size() - QSize(32, 64);
    sheet->resize(std::min(600, room.width()), std::min(480, room.height()));
    return sheet;
}

} // namespace

QIcon productIcon() {
    QIcon icon;
    for (const char* size : {"16", "32", "48", "128"}) {
        QImageReader reader(QString(":/chromalog/icon-%1.png").arg(size), "png");
        reader.setAutoDetectImageFormat(false); // a detection loads every reader that is installed
        icon.addPixmap(QPixmap::fromImageReader(&reader));
    }
    return icon;
}

void showAboutSheet(QWidget& window) {
    auto* sheet = window.findChild<QDialog*>("aboutSheet");
    if (!sheet) sheet = makeSheet(window);
    sheet->open();
    sheet->raise();
    sheet->activateWindow();
}

} // namespace chromalog
