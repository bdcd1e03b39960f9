#include "node.h"

#include "evaluation.h"
#include "nodemap.h"
#include "numbers.h"

#include <algorithm>
#include <limits>

namespace MoxGenApi {

using namespace GenApi;

namespace {

EVisibility visibilityFromText(const std::string &text)
{
    if (text == "Expert")
        return Expert;
    if (text == "Guru")
        return Guru;
    if (text == "Invisible")
        return Invisible;
    return Beginner;
}

} // namespace

Node::Node(NodeMap &map, const NodeDescription &description, std::size_t position)
    : m_map(map), m_description(description), m_position(position)
{
    const std::string cachable = description.text("Cachable");
    if (cachable == "NoCache")
        m_cachingMode = NoCache;
    else if (cachable == "WriteAround")
        m_cachingMode = WriteAround;
    if (const auto time = parseInteger(description.text("PollingTime")); time && *time >= 0)
        m_pollingTime = *time;
    // The stricter of the two: a description may hide further what another one brings.
    m_visibility = std::max(visibilityFromText(description.text("Visibility")),
                            visibilityFromText(description.text("ImposedVisibility")));
    m_displayName = description.find("DisplayName");
    if (!m_displayName || m_displayName->empty())
        m_displayName = &description.name;
}

Node::~Node()
{
    for (const Registration &registration : m_callbacks)
        registration.callback->Destroy();
}

Node *Node::link(Role role, const std::string &name)
{
    Node *node = m_map.find(name);
    if (node)
        m_links.push_back({role, node});
    return node;
}

Node *Node::linkTo(Role role, const char *tag)
{
    const std::string *name = m_description.find(tag);
    return name ? link(role, *name) : nullptr;
}

void Node::resolve()
{
    m_implemented = linkTo(Role::Condition, "pIsImplemented");
    m_available = linkTo(Role::Condition, "pIsAvailable");
    m_locked = linkTo(Role::Condition, "pIsLocked");
    m_imposed = modeFromText(m_description.text("ImposedAccessMode"), defaultImposedMode());
    for (const Property &property : m_description.properties) {
        if (property.tag == "pInvalidator") {
            link(Role::Invalidator, property.text);
        } else if (property.tag == "pSelected") {
            if (Node *selected = m_map.find(property.text)) {
                m_selected.push_back(selected);
                selected->m_links.push_back({Role::Selector, this});
                selected->selecting.push_back(this);
            }
        } else if (property.tag == "pAlias" || property.tag == "pCastAlias") {
            link(Role::Mention, property.text);
        }
    }
    if (m_description.kind == NodeKind::Category)
        m_isFeature = true;
}

gcstring Node::GetName(bool fullQualified) const
{
    if (fullQualified)
        return gcstring((m_description.standard ? "Std::" : "Cust::") + m_description.name);
    return gcstring(m_description.name);
}

void Node::InvalidateNode()
{
    m_map.invalidate({this});
}

bool Node::IsCachable() const
{
    return m_cachingMode != NoCache;
}

gcstring Node::GetToolTip() const
{
    return gcstring(m_description.text("ToolTip"));
}

gcstring Node::GetDescription() const
{
    return gcstring(m_description.text("Description"));
}

gcstring Node::GetDisplayName() const
{
    return gcstring(*m_displayName);
}

gcstring Node::GetDeviceName() const
{
    return m_map.GetDeviceName();
}

void Node::GetChildren(NodeList_t &children) const
{
    children.clear();
    for (const Link &link : m_links) {
        if (link.role != Role::Selector && std::find(children.begin(), children.end(), link.target) == children.end())
            children.push_back(link.target);
    }
}

void Node::GetParents(NodeList_t &nodes) const
{
    nodes.assign(parents.begin(), parents.end());
}

INodeMap *Node::GetNodeMap() const
{
    return &m_map;
}

bool Node::IsStreamable() const
{
    return m_description.text("Streamable") == "Yes";
}

bool Node::IsDeprecated() const
{
    return m_description.text("IsDeprecated") == "Yes";
}

CallbackHandleType Node::RegisterCallback(CNodeCallback *callback)
{
    if (!callback)
        return 0;
    AutoLock lock(m_map.GetLock());
    m_callbacks.push_back({callback, m_map.nextSerial(), callback->GetCallbackType()});
    return reinterpret_cast<CallbackHandleType>(callback);
}

bool Node::DeregisterCallback(CallbackHandleType handle)
{
    std::optional<Registration> detached;
    bool isWithinChange = false;
    {
        AutoLock lock(m_map.GetLock());
        const auto found =
            std::find_if(m_callbacks.begin(), m_callbacks.end(), [handle](const Registration &registration) {
                return reinterpret_cast<CallbackHandleType>(registration.callback) == handle;
            });
        if (found == m_callbacks.end())
            return false;
        detached = *found;
        m_callbacks.erase(found);
        isWithinChange = m_map.isChanging();
    }
    return detached->type != cbPostOutsideLock || m_map.awaitEnd(*detached, isWithinChange);
}

bool Node::isRegistered(const Registration &registration) const
{
    return std::any_of(m_callbacks.begin(), m_callbacks.end(),
                       [&](const Registration &other) { return other.serial == registration.serial; });
}

gcstring Node::ToString(bool verify, bool ignoreCache)
{
    (void)verify;
    AutoLock lock(m_map.GetLock());
    requireReadable();
    return gcstring(printed(ignoreCache));
}

// Without the lock: the callbacks that follow the write outside of it must find it free.
void Node::FromString(const gcstring &text, bool verify)
{
    setPrinted(std::string(text.c_str()), verify);
}

bool Node::IsValueCacheValid() const
{
    AutoLock lock(m_map.GetLock());
    return isValueKept();
}

bool Node::IsSelector() const
{
    return !m_selected.empty();
}

void Node::GetSelectedFeatures(FeatureList_t &features) const
{
    features.assign(m_selected.begin(), m_selected.end());
}

void Node::GetSelectingFeatures(FeatureList_t &features) const
{
    features.assign(selecting.begin(), selecting.end());
}

std::int64_t Node::integer(bool)
{
    throw ACCESS_EXCEPTION("Node '%s' has no value that can be read as a number.", name());
}

double Node::real(bool ignoreCache)
{
    return static_cast<double>(integer(ignoreCache));
}

std::string Node::text(bool)
{
    throw ACCESS_EXCEPTION("Node '%s' has no value that can be read as a text.", name());
}

void Node::setInteger(std::int64_t, bool)
{
    throw ACCESS_EXCEPTION("Node '%s' has no value that a number can be written to.", name());
}

void Node::setReal(double value, bool verify)
{
    setInteger(toInteger(value), verify);
}

void Node::setText(const std::string &, bool)
{
    throw ACCESS_EXCEPTION("Node '%s' has no value that a text can be written to.", name());
}

std::int64_t Node::integerMin()
{
    return std::numeric_limits<std::int64_t>::min();
}

std::int64_t Node::integerMax()
{
    return std::numeric_limits<std::int64_t>::max();
}

double Node::realMin()
{
    return static_cast<double>(integerMin());
}

double Node::realMax()
{
    return static_cast<double>(integerMax());
}

std::int64_t Node::textMax()
{
    return std::numeric_limits<std::int64_t>::max();
}

std::string Node::printed(bool)
{
    throw ACCESS_EXCEPTION("Node '%s' has no value.", name());
}

void Node::setPrinted(const std::string &, bool)
{
    throw ACCESS_EXCEPTION("Node '%s' has no value that can be written.", name());
}

void Node::forget()
{
    m_mode.forget();
}

void Node::settle(bool)
{ }

} // namespace MoxGenApi
