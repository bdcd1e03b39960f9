#include "dependencies.h"

#include "featurenodes.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace MoxGenApi {

using namespace GenApi;

namespace {

bool isRegister(const Node &node)
{
    return std::any_of(node.links().begin(), node.links().end(),
                       [](const Link &link) { return link.role == Role::Port; });
}

bool isFormula(const Node &node)
{
    return node.description().kind == NodeKind::SwissKnife || node.description().kind == NodeKind::IntSwissKnife;
}

// Goes from nodes to all that get their value from them, on and on. The function says whether a node is new to it.
template<class Mark> void spread(std::vector<Node *> open, Mark mark)
{
    while (!open.empty()) {
        const Node *node = open.back();
        open.pop_back();
        for (Node *user : node->dependents) {
            const bool isSource = std::any_of(user->links().begin(), user->links().end(), [node](const Link &link) {
                return link.target == node && (link.role == Role::Value || link.role == Role::Operand);
            });
            if (isSource && mark(*user))
                open.push_back(user);
        }
    }
}

} // namespace

void Dependencies::analyse(const Nodes &nodes)
{
    turnLinks(nodes);
    findUncached(nodes);
    findWriteAround(nodes);
    findPortUsers(nodes);
    breakCategoryCircles(nodes);
}

void Dependencies::turnLinks(const Nodes &nodes)
{
    for (const auto &node : nodes) {
        for (const Link &link : node->m_links) {
            // Links of one node to the same target come in a row here, so one look back finds doubles.
            if (link.role != Role::Selector
                && (link.target->parents.empty() || link.target->parents.back() != node.get()))
                link.target->parents.push_back(node.get());
            if (link.role != Role::Mention
                && (link.target->dependents.empty() || link.target->dependents.back() != node.get()))
                link.target->dependents.push_back(node.get());
            if (link.role == Role::Invalidator || link.role == Role::Selector)
                link.target->prompted.push_back(node.get());
        }
    }
}

// What cannot be kept spreads to all that is worked out from it. Each aspect of a node is reached at most once.
void Dependencies::findUncached(const Nodes &nodes)
{
    using Flag = bool Node::*;
    struct Item
    {
        Node *node;
        Flag flag;
    };
    std::vector<Item> open;
    const auto spoil = [&open](Node *node, Flag flag) {
        if (!(node->*flag))
            return;
        node->*flag = false;
        open.push_back({node, flag});
    };
    for (const auto &node : nodes) {
        if (node->m_cachingMode == NoCache)
            spoil(node.get(), &Node::keepsValue);
    }
    while (!open.empty()) {
        const Item item = open.back();
        open.pop_back();
        if (item.flag == &Node::keepsOperands) {
            spoil(item.node, &Node::keepsValue);
            spoil(item.node, &Node::keepsLimits);
            spoil(item.node, &Node::keepsMode);
        }
        for (Node *user : item.node->dependents) {
            for (const Link &link : user->m_links) {
                if (link.target != item.node)
                    continue;
                if (link.role == Role::Value)
                    spoil(user, item.flag == &Node::keepsOperands ? &Node::keepsValue : item.flag);
                else if (link.role == Role::Operand)
                    spoil(user, item.flag == &Node::keepsMode ? item.flag : &Node::keepsOperands);
                else if (link.role == Role::Condition && item.flag != &Node::keepsLimits)
                    spoil(user, &Node::keepsMode);
                else if (link.role == Role::Limit && item.flag != &Node::keepsMode)
                    spoil(user, &Node::keepsLimits);
            }
        }
    }
    for (const auto &node : nodes) {
        if (!node->keepsValue)
            node->m_cachingMode = NoCache;
    }
}

void Dependencies::findWriteAround(const Nodes &nodes)
{
    std::vector<Node *> open;
    for (const auto &node : nodes) {
        if (node->m_cachingMode == WriteAround)
            open.push_back(node.get());
    }
    spread(open, [](Node &user) {
        const bool isNew = user.m_cachingMode == WriteThrough;
        if (isNew)
            user.m_cachingMode = WriteAround;
        return isNew;
    });
}

void Dependencies::findPortUsers(const Nodes &nodes)
{
    std::vector<Node *> open;
    for (const auto &node : nodes) {
        if (isRegister(*node) || node->description().isDevicePort()) {
            node->usesPort = true;
            open.push_back(node.get());
        }
    }
    spread(open, [](Node &user) { return !std::exchange(user.usesPort, true); });
}

// Whoever walks down the categories recurses, so a category that would contain itself, at once or further down, is
// left out where the circle closes. The walk starts at the front: Root and what it leads to come first as they are.
void Dependencies::breakCategoryCircles(const Nodes &nodes)
{
    struct Step
    {
        CategoryNode *category;
        std::size_t next;
    };
    std::unordered_set<const Node *> finished;
    std::unordered_set<const Node *> ancestors;
    std::vector<CategoryNode *> starts;
    for (const auto &node : nodes) {
        auto *category = dynamic_cast<CategoryNode *>(node.get());
        if (!category)
            continue;
        for (Node *feature : category->features())
            feature->m_isFeature = true;
        starts.insert(category->description().name == "Root" ? starts.begin() : starts.end(), category);
    }
    for (CategoryNode *start : starts) {
        std::vector<Step> path;
        if (!finished.count(start)) {
            path.push_back({start, 0});
            ancestors.insert(start);
        }
        while (!path.empty()) {
            Step &step = path.back();
            if (step.next == step.category->features().size()) {
                finished.insert(step.category);
                ancestors.erase(step.category);
                path.pop_back();
                continue;
            }
            auto *child = dynamic_cast<CategoryNode *>(step.category->features()[step.next]);
            if (child && ancestors.count(child)) {
                step.category->leaveOut(child);
                continue;
            }
            ++step.next;
            if (child && !finished.count(child)) {
                ancestors.insert(child);
                path.push_back({child, 0});
            }
        }
    }
}

std::vector<Node *> Dependencies::withSources(std::vector<Node *> seeds)
{
    std::unordered_set<const Node *> known(seeds.begin(), seeds.end());
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        const Node *node = seeds[i];
        for (const Link &link : node->links()) {
            const bool holdsValue = link.role == Role::Value || (link.role == Role::Operand && isFormula(*node));
            if (holdsValue && known.insert(link.target).second)
                seeds.push_back(link.target);
        }
    }
    return seeds;
}

} // namespace MoxGenApi
