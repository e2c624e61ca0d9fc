#include "Cycles.h"

#include <algorithm>

namespace readers::xmi {

namespace {

class CycleSearch {
  public:
    explicit CycleSearch(const Edges& edges) : edges_(edges) {}

    bool isKnown(NodeIndex node) const { return states_.contains(node); }

    /// Follows all ways from the node; true when one of them has come back, and then it is on the path.
    bool leadsBack(NodeIndex start) {
        enter(start);
        while (!path_.empty()) {
            Step& step = path_.back();
            if (step.next == step.targets->size()) {
                states_[step.node] = State::DONE;
                path_.pop_back();
                continue;
            }
            const NodeIndex target = (*step.targets)[step.next++];
            const auto state = states_.find(target);
            if (state == states_.end()) {
                enter(target);
            } else if (state->second == State::OPEN) {
                closing_ = target;
                return true;
            }
        }
        return false;
    }

    std::vector<NodeIndex> cycle() const {
        std::vector<NodeIndex> nodes;
        for (const Step& step : path_) {
            if (!nodes.empty() || step.node == closing_) {
                nodes.push_back(step.node);
            }
        }
        std::rotate(nodes.begin(), std::min_element(nodes.begin(), nodes.end()), nodes.end());
        return nodes;
    }

  private:
    enum class State : std::uint8_t { OPEN, DONE };
    struct Step {
        NodeIndex node;
        const std::vector<NodeIndex>* targets;
        std::size_t next;
    };

    void enter(NodeIndex node) {
        static const std::vector<NodeIndex> NO_TARGETS;
        const auto found = edges_.find(node);
        states_[node] = State::OPEN;
        path_.push_back({node, found == edges_.end() ? &NO_TARGETS : &found->second, 0});
    }

    const Edges& edges_;
    std::vector<Step> path_;
    std::unordered_map<NodeIndex, State> states_;
    NodeIndex closing_ = NO_NODE;
};

}  // namespace

std::vector<NodeIndex> findCycle(const Edges& edges) {
    std::vector<NodeIndex> starts;
    starts.reserve(edges.size());
    for (const auto& [node, targets] : edges) {
        starts.push_back(node);
    }
    std::sort(starts.begin(), starts.end());
    CycleSearch search(edges);
    for (const NodeIndex start : starts) {
        if (!search.isKnown(start) && search.leadsBack(start)) {
            return search.cycle();
        }
    }
    return {};
}

std::string describeCycle(const Tree& tree, const std::vector<NodeIndex>& cycle) {
    constexpr std::size_t MOST_NAMES = 8;
    std::string text;
    for (std::size_t i = 0; i < cycle.size() && i < MOST_NAMES; ++i) {
        text.append(tree.placeOf(cycle[i])).append(" -> ");
    }
    return text + (cycle.size() > MOST_NAMES ? "... -> " : "") + tree.pathOf(cycle.front());
}

}  // namespace readers::xmi
