#pragma once

#include <QPointer>
#include <QStyle>
#include <QVariant>
#include <QWidget>

namespace chromalog {

/// The direct child of a container whose property "part" in the form is `name`; null where there is none.
inline QWidget* partOf(const QWidget& container, const char* name) {
    for (QWidget* child : container.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (child->property("part").toString() == QLatin1String(name)) return child;
    return nullptr;
}

/// A part that is looked for once.
class Part {
  public:
    explicit Part(const char* name) : name_(name) {}
    QWidget* in(const QWidget& container) const {
        if (!found_) found_ = partOf(container, name_);
        return found_;
    }
    /// Null also while it is folded.
    QWidget* shownIn(const QWidget& container) const {
        QWidget* part = in(container);
        return part && !part->isHidden() ? part : nullptr;
    }

  private:
    const char* name_;
    mutable QPointer<QWidget> found_;
};

/// Lays a part out; mirrored where its container reads from right to left.
inline void place(QWidget& part, const QRect& where) {
    const QWidget& container = *part.parentWidget();
    part.setGeometry(QStyle::visualRect(container.layoutDirection(), container.rect(), where));
}

/// The height that a part asks for at a width.
inline int heightOf(const QWidget& part, int width) {
    const int asked = part.hasHeightForWidth() ? part.heightForWidth(width) : part.sizeHint().height();
    return qBound(part.minimumHeight(), asked, part.maximumHeight());
}

} // namespace chromalog
