#pragma once

#include "qt/language/language_table.h"

#include <QObject>
#include <QTranslator>

#include <memory>
#include <vector>

namespace chromalog {

/// The language of a pick's windows, while it lives: of the texts that we say, in an application of our own
/// also of the toolkit's, and from which side our windows read. Of English, and of a host's own windows, it
/// changes nothing.
class SessionLanguage : public QObject {
  public:
    SessionLanguage(const std::string& code, bool ownApplication);
    ~SessionLanguage() override;

  protected:
    bool eventFilter(QObject*, QEvent*) override;

  private:
    void translateToolkit();

    const Language* const before_;
    std::unique_ptr<LanguageTable> table_;
    std::vector<std::unique_ptr<QTranslator>> toolkit_; ///< removed by their destructors
};

} // namespace chromalog
