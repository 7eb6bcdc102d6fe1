#include "drive/form_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QUiLoader>

#include <exception>
#include <utility>

namespace chromalog {
namespace {

/// No folder is searched for plug-ins while it lives. The loader's constructor would load all of Designer's,
/// with large libraries that nothing here uses; its own list of folders can be changed only after that.
class NoLibraryPaths {
  public:
    NoLibraryPaths() { QCoreApplication::setLibraryPaths({}); }
    ~NoLibraryPaths() {
        try {
            QCoreApplication::setLibraryPaths(before_);
        } catch (...) { // there was no memory: nothing here looks for a plug-in later
        }
    }
    NoLibraryPaths(const NoLibraryPaths&) = delete;
    NoLibraryPaths& operator=(const NoLibraryPaths&) = delete;

  private:
    const QStringList before_ = QCoreApplication::libraryPaths();
};

class FormReader : public QUiLoader {
  public:
    FormReader(MakeWidget makeOwn, std::vector<std::string>& problems)
        : FormReader(NoLibraryPaths(), makeOwn, problems) {}

    std::unique_ptr<QWidget> read(QFile& file) {
        std::unique_ptr<QWidget> root(load(&file));
        if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
        if (!root) problems_.push_back((file.fileName() + ": " + errorString()).toStdString());
        return root;
    }

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override try {
        return made(className, parent, name);
    } catch (...) {
        thrown_ = std::current_exception();
        return nullptr;
    }

  private:
    FormReader(const NoLibraryPaths&, MakeWidget makeOwn, std::vector<std::string>& problems)
        : makeOwn_(makeOwn), problems_(problems) {}

    QWidget* made(const QString& className, QWidget* parent, const QString& name) {
        if (QWidget* own = makeOwn_(className, parent)) {
            own->setObjectName(name);
            return own;
        }
        QWidget* widget = QUiLoader::createWidget(className, parent, name);
        const bool asAsked =
            widget && (className == "Line" || className == widget->metaObject()->className());
        if (!asAsked) problems_.push_back(("no class " + className + " for " + name).toStdString());
        return widget;
    }

    const MakeWidget makeOwn_;
    std::vector<std::string>& problems_;
    std::exception_ptr thrown_; ///< in createWidget, which the toolkit calls
};

} // namespace

std::unique_ptr<QWidget> readFormFile(const QString& path, MakeWidget makeOwn,
                                      std::vector<std::string>& problems) {
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) return FormReader(makeOwn, problems).read(file);
    problems.push_back((path + ": " + file.errorString()).toStdString());
    return nullptr;
}

} // namespace chromalog
