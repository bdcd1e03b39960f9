// A GenICam description as plain data: what each node says about itself, not yet linked.
#ifndef MOXGENAPI_DESCRIPTION_H
#define MOXGENAPI_DESCRIPTION_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace MoxGenApi {

enum class NodeKind {
    Node,
    Category,
    Integer,
    IntReg,
    MaskedIntReg,
    IntConverter,
    IntSwissKnife,
    Float,
    FloatReg,
    Converter,
    SwissKnife,
    Boolean,
    Command,
    String,
    StringReg,
    Enumeration,
    EnumEntry,
    Register,
    Port
};

/** One child element of a node: `<pVariable Name="X">Y</pVariable>` has the tag pVariable, the argument X, the text Y. */
struct Property
{
    std::string tag;
    std::string text;
    std::string argument; // attribute Name, Index or Offset
    std::string pOffset; // attribute pOffset of a pIndex
};

struct NodeDescription
{
    NodeKind kind = NodeKind::Node;
    std::string name;
    bool standard = false; // namespace "Standard", otherwise "Custom"
    int enumeration = -1; // of an entry: the position of its enumeration
    std::string symbolic; // of an entry
    std::vector<Property> properties;

    /** The text of the first element of that tag; null when there is none. */
    const std::string *find(std::string_view tag) const;
    std::string text(std::string_view tag) const;
    bool has(std::string_view tag) const { return find(tag) != nullptr; }
    /** A port without an identifier; those with one lead to events or to chunks of image data. */
    bool isDevicePort() const;
};

struct Description
{
    std::vector<NodeDescription> nodes; // in the order of the text; an entry follows its enumeration
};

/** Throws RuntimeException with a reason for the user when @p text is no usable description. */
Description parseDescription(const std::string &text);

} // namespace MoxGenApi

#endif
