#pragma once

#include "desktop/form.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace chromalog {

class DialogWindow;
class QtDesktop;

/// A loaded interface file with its controls. Taking it down disconnects the owner's views and closes its
/// window.
class QtForm : public Form {
  public:
    QtForm(std::unique_ptr<DialogWindow> root, QtDesktop&, std::string name);
    ~QtForm() override;

    /// Connects the owner's table; returns one line for everything that does not fit.
    std::vector<std::string> connect(const FormOwner&);

    DialogWindow* window() const;
    const std::string& name() const { return name_; }

  private:
    bool connectOutlet(const OutletEntry&, const std::multimap<QString, QObject*>& named);
    bool connectAction(QObject* sender, const FormOwner&);
    std::vector<std::string> unusedNames(const FormOwner&) const;
    QStringList ownMenus() const; ///< names of those that buttons of the form open by themselves

    QPointer<DialogWindow> root_;
    QtDesktop& desktop_;
    std::string name_;
    std::vector<std::shared_ptr<void>> controls_;
    std::vector<std::function<void()>> disconnects_; ///< outlets and views of the owner
};

} // namespace chromalog
