#pragma once

#include "qt/form_names.h"
#include "qt/mishap.h"

#include <QLabel>
#include <QPainter>
#include <QStringList>

namespace chromalog {

/// A caption that says as much as fits ("Nearest in list 1|Nearest|1"). Its least width is a number of
/// digits, whatever it says; the shortest text has to fit them.
class FitLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QString texts READ texts WRITE setTexts)
    Q_PROPERTY(int digits MEMBER digits_)
    Q_PROPERTY(bool strong MEMBER strong_)
  public:
    explicit FitLabel(QWidget* parent = nullptr) : QLabel(parent) { setProperty(kClassName, "QLabel"); }
    QString texts() const { return texts_.join('|'); }
    void setTexts(const QString& texts) {
        texts_ = texts.split('|', Qt::SkipEmptyParts);
        setText(texts_.value(0));
    }
    QSize sizeHint() const override { return {wide(text()), fontMetrics().height() + 2}; }
    QSize minimumSizeHint() const override {
        return {QFontMetrics(face()).horizontalAdvance('0') * digits_ + 2, fontMetrics().height() + 2};
    }

    int wide(const QString& text) const {
        return QFontMetrics(face()).horizontalAdvance(text) + 2;
    } ///< pixels

  protected:
    QFont face() const {
        QFont f = font();
        f.setBold(strong_);
        return f;
    }
    void paintEvent(QPaintEvent*) override try {
        QString shown = text();
        for (const QString& t : texts_) {
            shown = t;
            if (wide(t) <= width()) break;
        }
        QPainter painter(this);
        painter.setFont(face());
        painter.setPen(
            palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
        painter.drawText(rect(), int(alignment()) | Qt::TextSingleLine, shown);
    } catch (...) {
        mishap();
    }

  private:
    QStringList texts_;
    int digits_ = 1;
    bool strong_ = false;
};

} // namespace chromalog
