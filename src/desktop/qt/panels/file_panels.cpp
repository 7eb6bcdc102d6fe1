#include "desktop/qt/panels/file_panels.h"

#include "desktop/qt/convert.h"
#include "desktop/qt/mishap.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QSettings>
#include <QSignalBlocker>

namespace chromalog {

namespace {

/// The toolkit's panel writes its own settings file as it goes away. A picker leaves no files but its own, so
/// they go nowhere.
void deleteWithoutTraces(QFileDialog* panel) {
    if (!panel) return;
    const QString before =
        QFileInfo(QSettings(QSettings::NativeFormat, QSettings::UserScope, "QtProject").fileName()).path();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
    delete panel;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, before);
}

/// Puts the extension in place before the panel asks about an existing file: the question is then about the
/// file that is written.
class SaveDialog : public QFileDialog {
  public:
    SaveDialog(QWidget* parent, QString extension) : QFileDialog(parent), extension_(std::move(extension)) {}
    void accept() override try {
        auto* name = findChild<QLineEdit*>("fileNameEdit");
        auto* list = findChild<QListView*>("listView");
        if (name && list && !name->text().isEmpty()) {
            const QString path = withExtension(meantPath(name->text()), extension_);
            const QSignalBlocker noCompletion(name); // it would select another file's row
            name->setText(path);
            list->selectionModel()->clearSelection(); // a selected row wins over the name
        }
        QFileDialog::accept();
    } catch (...) {
        mishap();
    }

  private:
    /// The toolkit shortens the name of a file that exists to the name of its selected row, wherever that
    /// lies; and a row can stay selected under another name.
    QString meantPath(const QString& text) const {
        const QString selected = selectedFiles().value(0);
        if (QFileInfo(selected).fileName() == text) return selected;
        return QDir::isAbsolutePath(text) ? text : directory().filePath(text);
    }

    QString extension_;
};

} // namespace

QString withExtension(const QString& path, const QString& extension) {
    const qsizetype slash = path.lastIndexOf('/');
    const qsizetype dot = path.lastIndexOf('.');
    if (slash == path.size() - 1) return path; // a folder: the panel goes there
    return (dot > slash + 1 ? path.left(dot) : path) + '.' + extension;
}

FilePanels::~FilePanels() {
    guarded([this] {
        deleteWithoutTraces(open_);
        deleteWithoutTraces(answered_);
    });
}

void FilePanels::closeOn(const QWidget* parent) {
    if (open_ && open_->parentWidget() == parent) deleteWithoutTraces(open_);
    if (answered_ && answered_->parentWidget() == parent) deleteWithoutTraces(answered_);
}

void FilePanels::show(QFileDialog* panel, PanelAnswer answer) {
    deleteWithoutTraces(open_); // a window has one sheet
    deleteWithoutTraces(answered_);
    open_ = panel;
    panel->setOption(QFileDialog::DontUseNativeDialog);
    panel->setWindowModality(Qt::WindowModal);
    const auto finished = [this, panel, answer = std::move(answer)](int result) {
        const QStringList chosen = panel->selectedFiles();
        answered_ = open_;
        open_ = nullptr;
        if (result == QDialog::Accepted && !chosen.isEmpty())
            answer(fromQt(chosen.front()));
        else
            answer(std::nullopt);
    };
    QObject::connect(panel, &QDialog::finished, panel,
                     [finished](int result) { guarded([&] { finished(result); }); });
    panel->open();
}

void FilePanels::begin(const OpenPanel& panel, QWidget* parent, PanelAnswer answer) {
    records_.push_back({"open", panel.types, parent ? fromQt(parent->objectName()) : "", ""});
    auto* dialog = new QFileDialog(parent, QObject::tr("Open"));
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QStringList patterns;
    for (const std::string& type : panel.types)
        patterns << "*." + toQt(type);
    if (!patterns.isEmpty()) dialog->setNameFilter(QObject::tr("Swatch files (%1)").arg(patterns.join(' ')));
    show(dialog, std::move(answer));
}

void FilePanels::begin(const SavePanel& panel, QWidget* parent, PanelAnswer answer) {
    records_.push_back({"save", {}, parent ? fromQt(parent->objectName()) : "", panel.suggestedName});
    auto* dialog = new SaveDialog(parent, toQt(panel.extension));
    dialog->setWindowTitle(QObject::tr("Save"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    if (!panel.suggestedName.empty()) dialog->selectFile(toQt(panel.suggestedName));
    show(dialog, std::move(answer));
}

} // namespace chromalog
