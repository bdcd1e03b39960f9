#include "description.h"

#include "numbers.h"

#include <Base/GCException.h>

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <climits>
#include <memory>
#include <unordered_map>
#include <unordered_set>

namespace MoxGenApi {

namespace {

struct FreeXml
{
    void operator()(xmlParserCtxt *context) const { xmlFreeParserCtxt(context); }
    void operator()(xmlDoc *document) const { xmlFreeDoc(document); }
    void operator()(xmlChar *text) const { xmlFree(text); }
};

std::string_view nameOf(const xmlNode *element)
{
    return reinterpret_cast<const char *>(element->name);
}

std::string textOf(xmlNode *element)
{
    const std::unique_ptr<xmlChar, FreeXml> text(xmlNodeGetContent(element));
    return text ? trimmed(reinterpret_cast<const char *>(text.get())) : std::string();
}

std::string attributeOf(xmlNode *element, const char *name)
{
    const std::unique_ptr<xmlChar, FreeXml> text(xmlGetNoNsProp(element, reinterpret_cast<const xmlChar *>(name)));
    return text ? trimmed(reinterpret_cast<const char *>(text.get())) : std::string();
}

xmlNode *nextElement(xmlNode *node)
{
    while (node && node->type != XML_ELEMENT_NODE)
        node = node->next;
    return node;
}

const std::unordered_map<std::string_view, NodeKind> &kinds()
{
    static const std::unordered_map<std::string_view, NodeKind> table{
        {"Node", NodeKind::Node},
        {"Category", NodeKind::Category},
        {"Integer", NodeKind::Integer},
        {"IntReg", NodeKind::IntReg},
        {"MaskedIntReg", NodeKind::MaskedIntReg},
        {"IntConverter", NodeKind::IntConverter},
        {"IntSwissKnife", NodeKind::IntSwissKnife},
        {"Float", NodeKind::Float},
        {"FloatReg", NodeKind::FloatReg},
        {"Converter", NodeKind::Converter},
        {"SwissKnife", NodeKind::SwissKnife},
        {"Boolean", NodeKind::Boolean},
        {"Command", NodeKind::Command},
        {"String", NodeKind::String},
        {"StringReg", NodeKind::StringReg},
        {"Enumeration", NodeKind::Enumeration},
        {"Register", NodeKind::Register},
        {"Port", NodeKind::Port},
        // Kinds of the 1394 world: they keep their place in the tree, without a value.
        {"ConfRom", NodeKind::Node},
        {"TextDesc", NodeKind::Node},
        {"IntKey", NodeKind::Node},
        {"AdvFeatureLock", NodeKind::Node},
        {"SmartFeature", NodeKind::Node},
    };
    return table;
}

// Walks the document and gathers its nodes. A name that comes twice counts once: the first one stays.
class Reader
{
public:
    Description read(xmlNode *root)
    {
        readGroup(root);
        return std::move(m_description);
    }

private:
    void readGroup(xmlNode *group)
    {
        for (xmlNode *child = nextElement(group->children); child; child = nextElement(child->next)) {
            if (nameOf(child) == "Group")
                readGroup(child);
            else if (nameOf(child) == "StructReg")
                readStructure(child);
            else if (const auto kind = kinds().find(nameOf(child)); kind != kinds().end())
                readNode(child, kind->second);
        }
    }

    int addNode(NodeDescription node)
    {
        if (node.name.empty() || !m_names.insert(node.name).second)
            return -1;
        m_description.nodes.push_back(std::move(node));
        return static_cast<int>(m_description.nodes.size()) - 1;
    }

    NodeDescription describe(xmlNode *element, NodeKind kind, std::string name)
    {
        NodeDescription node;
        node.kind = kind;
        node.name = std::move(name);
        node.standard = attributeOf(element, "NameSpace") == "Standard";
        return node;
    }

    static Property property(xmlNode *element)
    {
        Property property{std::string(nameOf(element)), textOf(element), {}, {}};
        for (const char *attribute : {"Name", "Index", "Offset"}) {
            if (element->properties && property.argument.empty())
                property.argument = attributeOf(element, attribute);
        }
        if (element->properties)
            property.pOffset = attributeOf(element, "pOffset");
        return property;
    }

    void readNode(xmlNode *element, NodeKind kind)
    {
        NodeDescription node = describe(element, kind, attributeOf(element, "Name"));
        std::vector<xmlNode *> entries;
        for (xmlNode *child = nextElement(element->children); child; child = nextElement(child->next)) {
            if (nameOf(child) == "EnumEntry") {
                // An entry that lies in a node of another kind belongs to nobody.
                if (kind == NodeKind::Enumeration)
                    entries.push_back(child);
            } else if (nameOf(child) == "IntSwissKnife") {
                node.properties.push_back({"pAddress", readAddressFormula(child, node.name), {}, {}});
            } else if (nameOf(child) != "Extension") {
                node.properties.push_back(property(child));
            }
        }
        const std::string name = node.name;
        const int position = addNode(std::move(node));
        if (position < 0)
            return;
        for (xmlNode *entry : entries)
            readEntry(entry, name, position);
    }

    // A register may carry the formula of its address within itself.
    std::string readAddressFormula(xmlNode *element, const std::string &registerName)
    {
        NodeDescription node = describe(element, NodeKind::IntSwissKnife, attributeOf(element, "Name"));
        if (node.name.empty())
            node.name = registerName + "_Address" + std::to_string(m_description.nodes.size());
        for (xmlNode *child = nextElement(element->children); child; child = nextElement(child->next))
            node.properties.push_back(property(child));
        std::string name = node.name;
        addNode(std::move(node));
        return name;
    }

    void readEntry(xmlNode *element, const std::string &enumeration, int position)
    {
        const std::string name = attributeOf(element, "Name");
        NodeDescription node = describe(element, NodeKind::EnumEntry, "EnumEntry_" + enumeration + "_" + name);
        node.enumeration = position;
        for (xmlNode *child = nextElement(element->children); child; child = nextElement(child->next)) {
            if (nameOf(child) != "Extension")
                node.properties.push_back(property(child));
        }
        node.symbolic = node.text("Symbolic");
        if (node.symbolic.empty())
            node.symbolic = name;
        addNode(std::move(node));
    }

    // Each entry of a structure is a masked register; what it does not say itself, the structure says for it.
    void readStructure(xmlNode *element)
    {
        std::vector<Property> shared;
        std::vector<xmlNode *> entries;
        for (xmlNode *child = nextElement(element->children); child; child = nextElement(child->next)) {
            if (nameOf(child) == "StructEntry")
                entries.push_back(child);
            else if (nameOf(child) == "IntSwissKnife")
                shared.push_back({"pAddress", readAddressFormula(child, attributeOf(element, "Comment")), {}, {}});
            else if (nameOf(child) != "Extension")
                shared.push_back(property(child));
        }
        for (xmlNode *entry : entries) {
            NodeDescription node = describe(entry, NodeKind::MaskedIntReg, attributeOf(entry, "Name"));
            for (xmlNode *child = nextElement(entry->children); child; child = nextElement(child->next)) {
                if (nameOf(child) != "Extension")
                    node.properties.push_back(property(child));
            }
            const std::size_t own = node.properties.size();
            for (const Property &property : shared) {
                bool told = false;
                for (std::size_t i = 0; i < own && !told; ++i)
                    told = node.properties[i].tag == property.tag;
                if (!told)
                    node.properties.push_back(property);
            }
            addNode(std::move(node));
        }
    }

    Description m_description;
    std::unordered_set<std::string> m_names;
};

} // namespace

const std::string *NodeDescription::find(std::string_view tag) const
{
    for (const Property &property : properties) {
        if (property.tag == tag)
            return &property.text;
    }
    return nullptr;
}

std::string NodeDescription::text(std::string_view tag) const
{
    const std::string *found = find(tag);
    return found ? *found : std::string();
}

bool NodeDescription::isDevicePort() const
{
    return kind == NodeKind::Port && !has("ChunkID") && !has("pChunkID") && !has("EventID") && !has("pEventID");
}

Description parseDescription(const std::string &text)
{
    // Some files begin with a line of their own before the XML.
    const std::size_t begin = text.find('<');
    if (begin == std::string::npos)
        throw RUNTIME_EXCEPTION("The device description is empty or is not XML.");
    // The parser takes an int.
    if (text.size() - begin > INT_MAX)
        throw RUNTIME_EXCEPTION("The device description is too large.");

    xmlInitParser();
    const std::unique_ptr<xmlParserCtxt, FreeXml> context(xmlNewParserCtxt());
    if (!context)
        throw BAD_ALLOC_EXCEPTION("No memory for the device description.");
    const std::unique_ptr<xmlDoc, FreeXml> document(
        xmlCtxtReadMemory(context.get(), text.data() + begin, static_cast<int>(text.size() - begin), nullptr, nullptr,
                          XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NONET | XML_PARSE_COMPACT));
    if (!document) {
        const xmlError *error = xmlCtxtGetLastError(context.get());
        const std::string reason = error && error->message ? error->message : "unknown error";
        throw RUNTIME_EXCEPTION("The device description is not well-formed XML: line %d: %s", error ? error->line : 0,
                                reason.substr(0, reason.find('\n')).c_str());
    }
    xmlNode *root = xmlDocGetRootElement(document.get());
    if (!root || nameOf(root) != "RegisterDescription")
        throw RUNTIME_EXCEPTION("The device description has no RegisterDescription; it begins with '%s'.",
                                root ? std::string(nameOf(root)).c_str() : "");
    return Reader().read(root);
}

} // namespace MoxGenApi
