#include "palettes/formats/token_groups.h"

#include "palettes/formats/token_palette.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace chromalog {
namespace {

constexpr std::size_t kMostLevels = 60; // of groups: below what the reader takes

/// A group: its colours and the groups in it, in the order of the file.
struct Node {
    struct Member {
        bool isGroup;
        std::size_t index; ///< of a colour or a node
    };
    std::vector<Member> members;
    std::map<std::string, std::size_t> groups; ///< by key
    std::string path;
};

class Tree {
  public:
    explicit Tree(FittedPalette& fitted) : fitted_(fitted), nodes_(1) {}

    void place(std::size_t colour) {
        auto& text = fitted_.palette.colours[colour].group;
        const auto known = byText_.find(text);
        const std::size_t node = known != byText_.end() ? known->second : nodeOf(text);
        if (known == byText_.end()) byText_.emplace(text, node);
        nodes_[node].members.push_back({false, colour});
        text = nodes_[node].path;
    }
    void nameColours() {
        for (const Node& node : nodes_)
            nameColours(node);
    }
    void flatten(std::size_t node, std::vector<std::size_t>& order) const {
        for (const Node::Member& member : nodes_[node].members)
            if (member.isGroup)
                flatten(member.index, order);
            else
                order.push_back(member.index);
    }

  private:
    std::size_t nodeOf(const std::string& group) {
        std::size_t at = 0;
        for (const std::string& name : groupNames(group)) {
            const std::string key = tokenKey(name);
            const auto [found, isNew] = nodes_[at].groups.try_emplace(key, nodes_.size());
            const std::size_t next = found->second;
            if (isNew) {
                std::string path = nodes_[at].path.empty() ? key : nodes_[at].path + "/" + key;
                nodes_[at].members.push_back({true, next});
                nodes_.emplace_back().path = std::move(path);
            }
            at = next;
        }
        return at;
    }
    void nameColours(const Node& node) {
        std::unordered_set<std::string> used;
        for (const auto& [key, index] : node.groups)
            used.insert(key);
        std::unordered_map<std::string, int> latest;
        for (const Node::Member& member : node.members) {
            if (member.isGroup) continue;
            std::string& name = fitted_.palette.colours[member.index].name;
            const std::string wanted = name;
            int& number = latest.try_emplace(wanted, 1).first->second;
            while (!used.insert(name).second)
                name = wanted + " " + std::to_string(++number);
        }
    }

    FittedPalette& fitted_;
    std::vector<Node> nodes_;
    std::unordered_map<std::string, std::size_t> byText_;
};

} // namespace

std::vector<std::string> groupNames(const std::string& group) {
    std::vector<std::string> names;
    for (std::size_t from = 0; from < group.size() && names.size() < kMostLevels;) {
        const std::size_t slash = std::min(group.find('/', from), group.size());
        if (slash > from) names.push_back(group.substr(from, slash - from));
        from = slash + 1;
    }
    return names;
}

void arrangeTokens(FittedPalette& fitted) {
    Tree tree(fitted);
    for (std::size_t i = 0; i < fitted.palette.colours.size(); ++i)
        tree.place(i);
    tree.nameColours();
    std::vector<std::size_t> order;
    tree.flatten(0, order);
    FittedPalette arranged;
    arranged.palette.title = std::move(fitted.palette.title);
    for (const std::size_t i : order) {
        arranged.palette.colours.push_back(std::move(fitted.palette.colours[i]));
        arranged.from.push_back(fitted.from[i]);
    }
    fitted = std::move(arranged);
}

} // namespace chromalog
