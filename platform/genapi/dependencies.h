// What is worked out once about how the nodes of a map depend on each other.
#ifndef MOXGENAPI_DEPENDENCIES_H
#define MOXGENAPI_DEPENDENCIES_H

#include "node.h"

#include <memory>
#include <vector>

namespace MoxGenApi {

/**
 * Fills in, for all nodes, who goes stale with whom and what may be kept at all; breaks circles of categories.
 * Runs once when the map is built. Linear in the number of links.
 */
class Dependencies
{
public:
    using Nodes = std::vector<std::unique_ptr<Node>>;

    static void analyse(const Nodes &nodes);
    /** @p seeds and the nodes that hold their values, down to the registers. */
    static std::vector<Node *> withSources(std::vector<Node *> seeds);

private:
    static void turnLinks(const Nodes &nodes);
    static void findUncached(const Nodes &nodes);
    static void findWriteAround(const Nodes &nodes);
    static void findPortUsers(const Nodes &nodes);
    static void breakCategoryCircles(const Nodes &nodes);
};

} // namespace MoxGenApi

#endif
