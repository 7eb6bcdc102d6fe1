#include "qt/language/session_language.h"

#include "qt/controls/window_control.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QApplication>
#include <QEvent>
#include <QLibraryInfo>
#include <QLocale>

namespace chromalog {
namespace {

/// The toolkit's texts of the table. Its contexts are its classes: a form's text may be the same in English.
class ToolkitTexts : public QTranslator {
  public:
    explicit ToolkitTexts(const QHash<QString, QString>& texts) : texts_(texts) {}

    QString translate(const char* context, const char* source, const char*, int) const override try {
        if (!context || *context != 'Q') return {};
        return texts_.value(QString::fromUtf8(source));
    } catch (...) {
        mishap();
        return {};
    }
    bool isEmpty() const override { return texts_.isEmpty(); }

  private:
    const QHash<QString, QString>& texts_;
};

} // namespace

SessionLanguage::SessionLanguage(const std::string& code, bool ownApplication)
    : before_(spokenLanguage()), table_(readLanguage(code)) {
    speak(table_ ? &table_->language : nullptr);
    if (!table_) return;
    if (ownApplication) translateToolkit();
    if (table_->fromRightToLeft) qApp->installEventFilter(this);
}

SessionLanguage::~SessionLanguage() {
    speak(before_);
}

/// What was asked for last is asked first: the toolkit's own translation, where it is installed, knows all.
void SessionLanguage::translateToolkit() {
    toolkit_.push_back(std::make_unique<ToolkitTexts>(table_->toolkit));
    auto own = std::make_unique<QTranslator>();
    if (!table_->fromRightToLeft && own->load(QLocale(toQt(table_->language.code)), "qtbase", "_",
                                              QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        toolkit_.push_back(std::move(own));
    for (const auto& translator : toolkit_)
        QCoreApplication::installTranslator(translator.get());
}

/// A window has a direction of its own: our dialogs', and that of each menu, box and tip below them.
bool SessionLanguage::eventFilter(QObject* object, QEvent* event) try {
    if (event->type() != QEvent::Polish) return false;
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || !widget->isWindow()) return false;
    for (const QWidget* above = widget; above; above = above->parentWidget())
        if (qobject_cast<const DialogWindow*>(above)) widget->setLayoutDirection(Qt::RightToLeft);
    return false;
} catch (...) {
    mishap();
    return false;
}

} // namespace chromalog
