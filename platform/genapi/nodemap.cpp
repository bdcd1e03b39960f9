#include "nodemap.h"

#include "dependencies.h"
#include "enumerationnode.h"
#include "featurenodes.h"
#include "nodemapfactory.h"
#include "registernodes.h"

namespace MoxGenApi {

using namespace GenApi;

namespace {

std::unique_ptr<Node> makeNode(NodeMap &map, const NodeDescription &description, std::size_t position)
{
    switch (description.kind) {
    case NodeKind::Category:
        return std::make_unique<CategoryNode>(map, description, position);
    case NodeKind::Integer:
        return std::make_unique<IntegerFeature>(map, description, position);
    case NodeKind::IntReg:
        return std::make_unique<IntRegNode>(map, description, position);
    case NodeKind::MaskedIntReg:
        return std::make_unique<MaskedIntRegNode>(map, description, position);
    case NodeKind::IntConverter:
        return std::make_unique<IntConverterNode>(map, description, position);
    case NodeKind::IntSwissKnife:
        return std::make_unique<IntSwissKnifeNode>(map, description, position);
    case NodeKind::Float:
        return std::make_unique<FloatFeature>(map, description, position);
    case NodeKind::FloatReg:
        return std::make_unique<FloatRegNode>(map, description, position);
    case NodeKind::Converter:
        return std::make_unique<ConverterNode>(map, description, position);
    case NodeKind::SwissKnife:
        return std::make_unique<SwissKnifeNode>(map, description, position);
    case NodeKind::Boolean:
        return std::make_unique<BooleanNode>(map, description, position);
    case NodeKind::Command:
        return std::make_unique<CommandNode>(map, description, position);
    case NodeKind::String:
        return std::make_unique<StringFeature>(map, description, position);
    case NodeKind::StringReg:
        return std::make_unique<StringRegNode>(map, description, position);
    case NodeKind::Enumeration:
        return std::make_unique<EnumerationNode>(map, description, position);
    case NodeKind::EnumEntry:
        return std::make_unique<EnumEntryNode>(map, description, position);
    case NodeKind::Register:
        return std::make_unique<RegisterNode>(map, description, position);
    case NodeKind::Port:
        return std::make_unique<PortNode>(map, description, position);
    case NodeKind::Node:
        break;
    }
    return std::make_unique<Node>(map, description, position);
}

} // namespace

NodeMap::NodeMap(Description description, IPort &port, std::string deviceName)
    : m_description(std::move(description)), m_port(port), m_deviceName(std::move(deviceName))
{
    m_nodes.reserve(m_description.nodes.size());
    for (const NodeDescription &text : m_description.nodes) {
        m_nodes.push_back(makeNode(*this, text, m_nodes.size()));
        m_byName.emplace(text.name, m_nodes.back().get());
        if (text.enumeration >= 0)
            static_cast<EnumerationNode &>(*m_nodes[static_cast<std::size_t>(text.enumeration)])
                .addEntry(static_cast<EnumEntryNode &>(*m_nodes.back()));
    }
    m_marks.resize(m_nodes.size());
    for (const auto &node : m_nodes) {
        node->resolve();
        if (node->GetPollingTime() >= 0)
            m_polled.push_back({node.get(), 0});
    }
    Dependencies::analyse(m_nodes);
}

NodeMap::~NodeMap() = default;

void NodeMap::GetNodes(NodeList_t &nodes) const
{
    nodes.clear();
    for (const auto &node : m_nodes)
        nodes.push_back(node.get());
}

INode *NodeMap::GetNode(const gcstring &name) const
{
    const std::string text = name.c_str();
    const std::size_t space = text.rfind("::");
    return find(space == std::string::npos ? text : text.substr(space + 2));
}

gcstring NodeMap::GetDeviceName() const
{
    return gcstring(m_deviceName);
}

Node *NodeMap::find(const std::string &name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : found->second;
}

std::unique_ptr<INodeMap> createNodeMap(const std::string &description, IPort &port, const std::string &deviceName)
{
    auto map = std::make_unique<NodeMap>(parseDescription(description), port, deviceName);
    if (!dynamic_cast<CategoryNode *>(map->find("Root")))
        throw RUNTIME_EXCEPTION("The device description has no category named Root.");
    return map;
}

} // namespace MoxGenApi
