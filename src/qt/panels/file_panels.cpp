#include "qt/panels/file_panels.h"

#include "base/translated.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QSettings>
#include <QSignalBlocker>
#include <QTimer>

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

} // namespace

/// Takes a path as it was typed. On the way there the toolkit selects rows that match, and can shorten the
/// path of a file to the bare name of its row; where it reads a folder late, a row stays selected that has
/// nothing to do with what stands in the field, and would win over it.
class TypedPanel : public QFileDialog {
  public:
    TypedPanel(QWidget* parent, const QString& title, bool native) : QFileDialog(parent, title) {
        if (!native) setOption(QFileDialog::DontUseNativeDialog);
        findFields();
    }
    /// A desktop that promised a panel may fail to show it: the toolkit then makes its own.
    void setVisible(bool visible) override try {
        QFileDialog::setVisible(visible);
        findFields();
    } catch (...) {
        mishap();
    }
    bool isDesktopsOwn() const { return !name_; }
    /// What was chosen; empty: nothing.
    virtual QString chosen() const { return selectedFiles().value(0); }
    /// Once it has gone: whether what was chosen may be written. May ask the person.
    virtual bool mayWrite() const { return true; }
    void suggest(const QString& name) {
        suggested_ = name;
        if (!name.isEmpty()) selectFile(name);
    }
    /// The desktop's own panel would begin where it found the suggested name.
    void goTo(const QString& folder) {
        setDirectory(folder);
        if (isDesktopsOwn() && !suggested_.isEmpty()) selectFile(suggested_);
    }
    QString folder() const {
        return isDesktopsOwn() ? QFileInfo(chosen()).absolutePath() : directory().absolutePath();
    }
    void accept() override try {
        const QString path = meant();
        if (rows_ && !path.isEmpty()) {
            const QSignalBlocker noCompletion(name_); // it would select another file's row
            name_->setText(path);
            rows_->selectionModel()->clearSelection();
        }
        QFileDialog::accept();
    } catch (...) {
        mishap();
    }

  protected:
    virtual QString meant() const { return path_; } ///< empty: what is selected
    QString name() const { return name_ ? name_->text() : QString(); }

  private:
    /// Nothing where the desktop's own panel stands for this one: it has no fields then.
    void findFields() {
        if (name_) return;
        name_ = findChild<QLineEdit*>("fileNameEdit");
        rows_ = findChild<QListView*>("listView");
        if (!name_ || !rows_) return;
        connect(name_, &QLineEdit::textChanged, this,
                [this](const QString& text) { guarded([&] { nameChanged(text); }); });
        for (const QAbstractItemView* view : findChildren<QAbstractItemView*>())
            connect(view, &QAbstractItemView::pressed, this, [this] { path_.clear(); });
    }
    void nameChanged(const QString& text) {
        if (text.contains('/'))
            path_ = text;
        else if (text.isEmpty() || text != QFileInfo(path_).fileName())
            path_.clear();
    }

    QLineEdit* name_ = nullptr;
    QListView* rows_ = nullptr;
    QString path_; ///< the path that was typed last, as long as it is meant
    QString suggested_;
};

namespace {

/// Whether the person lets the file be replaced.
bool mayReplace(QWidget* over, const QString& path, const QString& title) {
    QMessageBox box(QMessageBox::Warning, title,
                    toQt(translated("%1 already exists.", fromQt(QFileInfo(path).fileName())) + "\n" +
                         translated("Do you want to replace it?")),
                    QMessageBox::Yes | QMessageBox::No, over);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

/// Puts the extension in place before the panel asks about an existing file: the question is then about the
/// file that is written. The desktop's own panel asks of itself, about the name as it was typed; where the
/// extension makes another of it, that is asked for here, and No ends without a file.
class SaveDialog : public TypedPanel {
  public:
    SaveDialog(QWidget* parent, const QString& title, QString extension, bool native)
        : TypedPanel(parent, title, native), extension_(std::move(extension)) {
        // Else the desktop's own takes any other. A default suffix would hide which name it has asked about.
        if (isDesktopsOwn()) setNameFilter("*." + extension_);
    }
    QString chosen() const override {
        const QString path = TypedPanel::chosen();
        return !isDesktopsOwn() || path.isEmpty() ? path : withExtension(path, extension_);
    }
    bool mayWrite() const override {
        const QString path = chosen();
        return path == TypedPanel::chosen() || !QFileInfo::exists(path) ||
               mayReplace(parentWidget(), path, windowTitle());
    }

  protected:
    QString meant() const override {
        QString path = TypedPanel::meant().isEmpty() ? named() : TypedPanel::meant();
        if (path.isEmpty()) return path;
        return withExtension(QDir::isAbsolutePath(path) ? path : directory().filePath(path), extension_);
    }

  private:
    /// A bare name is that of its selected row, wherever that lies; but a row can stay selected under another
    /// name.
    QString named() const {
        if (name().isEmpty()) return {};
        const QString selected = selectedFiles().value(0);
        return QFileInfo(selected).fileName() == name() ? selected : name();
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

namespace {

/// Whether the panel goes when the window goes: it may stand over a panel of that window.
bool goesWith(const QWidget* panel, const QWidget* window) {
    while (panel && panel != window)
        panel = panel->parentWidget();
    return panel;
}

} // namespace

void FilePanels::closeOn(const QWidget* window) {
    if (goesWith(open_, window)) deleteWithoutTraces(open_);
    if (goesWith(answered_, window)) deleteWithoutTraces(answered_);
}

void FilePanels::show(TypedPanel* panel, const std::string& kind, PanelAnswer answer) {
    deleteWithoutTraces(open_); // a window has one sheet
    deleteWithoutTraces(answered_);
    open_ = panel;
    panel->setWindowModality(Qt::WindowModal);
    if (const QString folder = habits_.folderOf(kind); !folder.isEmpty()) panel->goTo(folder);
    const auto finished = [this, panel, kind, answer = std::move(answer)](int result) {
        const QString chosen = panel->chosen();
        if (result == QDialog::Accepted) habits_.usedFolder(kind, panel->folder());
        answered_ = open_;
        open_ = nullptr;
        if (result == QDialog::Accepted && !chosen.isEmpty() && panel->mayWrite())
            answer(fromQt(chosen));
        else
            answer(std::nullopt);
    };
    QObject::connect(
        panel, &QDialog::finished, panel, [finished, mine = QPointer<QFileDialog>(panel)](int result) {
            const QPointer<QFileDialog> answered = mine; // goes with the panel
            guarded([&] { finished(result); });
            // It would go on watching its folder. An answer that begins the next one has taken it.
            if (answered)
                QTimer::singleShot(0, answered,
                                   [answered] { guarded([&] { deleteWithoutTraces(answered); }); });
        });
    panel->open();
}

void FilePanels::begin(const OpenPanel& panel, QWidget* parent, PanelAnswer answer) {
    records_.push_back({"open", panel.types, parent ? fromQt(parent->objectName()) : "", ""});
    const QString title = panel.title.empty() ? toQt(translated("Open")) : toQt(panel.title);
    auto* dialog = new TypedPanel(parent, title, native_);
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QStringList patterns;
    for (const std::string& type : panel.types)
        patterns << "*." + toQt(type);
    if (!patterns.isEmpty())
        dialog->setNameFilter(QString("%1 (%2)").arg(toQt(panel.kind), patterns.join(' ')));
    show(dialog, panel.types.empty() ? std::string() : panel.types.front(), std::move(answer));
}

void FilePanels::begin(const SavePanel& panel, QWidget* parent, PanelAnswer answer) {
    records_.push_back({"save", {}, parent ? fromQt(parent->objectName()) : "", panel.suggestedName});
    const QString title = panel.title.empty() ? toQt(translated("Save")) : toQt(panel.title);
    auto* dialog = new SaveDialog(parent, title, toQt(panel.extension), native_);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->suggest(toQt(panel.suggestedName));
    show(dialog, panel.extension, std::move(answer));
}

} // namespace chromalog
