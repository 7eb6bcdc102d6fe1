#include "qt/controls/clear_button.h"

#include "base/translated.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QAction>
#include <QGuiApplication>
#include <QIconEngine>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>

namespace chromalog {

namespace {

/// A cross in the colour of texts, sharp at any scale.
class Cross : public QIconEngine {
  public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override try {
        const QRectF box(rect);
        const QRectF cross =
            box.adjusted(box.width() * 0.3, box.height() * 0.3, box.width() * -0.3, box.height() * -0.3);
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::Text), box.width() / 14,
                             Qt::SolidLine, Qt::RoundCap));
        painter->drawLine(cross.topLeft(), cross.bottomRight());
        painter->drawLine(cross.topRight(), cross.bottomLeft());
    } catch (...) {
        mishap();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override try {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    } catch (...) {
        mishap();
        return QPixmap();
    }
    QIconEngine* clone() const override { return new Cross(*this); }
};

} // namespace

void addClearButton(QLineEdit& field) {
    QAction* clear = field.addAction(QIcon(new Cross), QLineEdit::TrailingPosition);
    clear->setText(toQt(translated("Clear")));
    clear->setVisible(!field.text().isEmpty());
    QObject::connect(&field, &QLineEdit::textChanged, clear,
                     [clear](const QString& text) { guarded([&] { clear->setVisible(!text.isEmpty()); }); });
    QObject::connect(clear, &QAction::triggered, &field, [&field] {
        guarded([&] {
            field.clear();
            Q_EMIT field.textEdited(QString()); // a person's edit
        });
    });
}

} // namespace chromalog
