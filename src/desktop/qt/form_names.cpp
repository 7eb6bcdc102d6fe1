#include "desktop/qt/form_names.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <array>

namespace chromalog {

bool isDecoration(const QString& name) {
    static constexpr std::array prefixes = {"caption", "layout", "spacer", "group", "box", "qt_"};
    return name.isEmpty() || std::any_of(prefixes.begin(), prefixes.end(),
                                         [&](const char* prefix) { return name.startsWith(prefix); });
}

std::vector<FormName> formNames(QIODevice& file) {
    std::vector<FormName> all;
    std::vector<std::size_t> open; // objects around the reader's place, as indices into `all`
    bool inAction = false;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        const bool object = xml.name() == u"widget" || xml.name() == u"action";
        if (xml.isStartElement() && object) {
            open.push_back(all.size());
            all.push_back(
                {xml.attributes().value("class").toString(), xml.attributes().value("name").toString(), {}});
        } else if (xml.isEndElement() && object && !open.empty()) {
            open.pop_back();
        } else if (xml.isStartElement() && xml.name() == u"property") {
            inAction = xml.attributes().value("name") == u"action";
        } else if (xml.isStartElement() && xml.name() == u"string" && inAction && !open.empty()) {
            all[open.back()].action = xml.readElementText();
            inAction = false;
        }
    }
    std::erase_if(all, [](const FormName& n) { return n.action.isEmpty() && isDecoration(n.name); });
    return all;
}

} // namespace chromalog
