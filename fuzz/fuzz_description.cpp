// Descriptions: the input is the text of one. Behind a zero byte the port's memory may follow, as a pattern that repeats.
#include "fuzzer.h"
#include "genapi/nodemapfactory.h"
#include "memory.h"

#include <vector>

using namespace GenApi;

namespace {

/** What reading gives: the text, or the reason why there is none. */
struct Outcome
{
    bool isRead = false;
    std::string text;
};

template<class Action> bool attempt(Action action)
{
    try {
        action();
        return true;
    } catch (const GenICam::GenericException &error) {
        MOX_FUZZ_CHECK(error.GetDescription()[0] != '\0');
        return false;
    }
}

Outcome read(IValue &value, bool ignoreCache)
{
    Outcome outcome;
    outcome.isRead = attempt([&] { outcome.text = value.ToString(false, ignoreCache).c_str(); });
    return outcome;
}

/** All that a view asks of a feature. Each may be refused, and must be so by an exception of GenICam's. */
void ask(INode &node)
{
    NodeList_t others;
    node.GetName(true);
    node.GetVisibility();
    node.GetPollingTime();
    node.GetChildren(others);
    node.GetParents(others);
    attempt([&] { node.GetDisplayName(); });
    attempt([&] { node.GetToolTip(); });
    attempt([&] { node.GetDescription(); });
    attempt([&] { node.GetAccessMode(); });
    if (auto *integer = dynamic_cast<IInteger *>(&node)) {
        attempt([&] { integer->GetMin(); });
        attempt([&] { integer->GetMax(); });
        attempt([&] { integer->GetInc(); });
        attempt([&] { integer->GetListOfValidValues(); });
        attempt([&] { integer->GetRepresentation(); });
        attempt([&] { integer->GetUnit(); });
    } else if (auto *real = dynamic_cast<IFloat *>(&node)) {
        attempt([&] { real->GetMin(); });
        attempt([&] { real->GetMax(); });
        attempt([&] { real->GetInc(); });
        attempt([&] { real->GetListOfValidValues(); });
        attempt([&] { real->GetDisplayPrecision(); });
        attempt([&] { real->GetRepresentation(); });
    } else if (auto *enumeration = dynamic_cast<IEnumeration *>(&node)) {
        StringList_t symbolics;
        attempt([&] { enumeration->GetSymbolics(symbolics); });
        attempt([&] { enumeration->GetCurrentEntry(); });
    } else if (auto *text = dynamic_cast<IString *>(&node)) {
        attempt([&] { text->GetMaxLength(); });
    } else if (auto *command = dynamic_cast<ICommand *>(&node)) {
        attempt([&] { command->IsDone(); });
    }
    if (auto *place = dynamic_cast<IRegister *>(&node)) {
        attempt([&] {
            place->GetAddress();
            const std::int64_t length = place->GetLength();
            MOX_FUZZ_CHECK(length > 0);
            std::vector<std::uint8_t> bytes(static_cast<std::size_t>(length));
            place->Get(bytes.data(), length);
        });
    }
    if (auto *selector = dynamic_cast<ISelector *>(&node)) {
        FeatureList_t features;
        attempt([&] { selector->GetSelectedFeatures(features); });
        attempt([&] { selector->GetSelectingFeatures(features); });
    }
}

/** The caches must not tell from what the port holds: nothing but this map changes it. */
void compareCaches(const NodeList_t &nodes)
{
    for (INode *node : nodes) {
        auto *value = dynamic_cast<IValue *>(node);
        if (!value)
            continue;
        const Outcome kept = read(*value, false);
        const Outcome fresh = read(*value, true);
        if (kept.isRead != fresh.isRead || kept.text != fresh.text)
            std::fprintf(stderr, "%s: kept %d '%s', fresh %d '%s'\n", node->GetName().c_str(), kept.isRead,
                         kept.text.c_str(), fresh.isRead, fresh.text.c_str());
        MOX_FUZZ_CHECK(kept.isRead == fresh.isRead);
        MOX_FUZZ_CHECK(kept.text == fresh.text);
    }
}

void write(INode &node)
{
    auto *value = dynamic_cast<IValue *>(&node);
    if (!value)
        return;
    if (auto *integer = dynamic_cast<IInteger *>(value)) {
        attempt([&] {
            const std::int64_t max = integer->GetMax();
            integer->SetValue(max);
        });
        attempt([&] { integer->SetValue(1); });
    } else if (auto *command = dynamic_cast<ICommand *>(value)) {
        attempt([&] { command->Execute(); });
    } else if (auto *enumeration = dynamic_cast<IEnumeration *>(value)) {
        StringList_t symbolics;
        attempt([&] {
            enumeration->GetSymbolics(symbolics);
            if (symbolics.size() > 0)
                enumeration->FromString(symbolics[symbolics.size() - 1]);
        });
    } else {
        attempt([&] { value->FromString("1"); });
    }
    const Outcome now = read(*value, false);
    if (now.isRead)
        attempt([&] { value->FromString(now.text.c_str()); });
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 16384)
        return -1;
    MoxFuzz::Input input(data, size);
    const std::string description = input.until('\0');
    MoxFuzz::Memory memory(input.rest());
    std::unique_ptr<INodeMap> map;
    const bool isMade = attempt([&] { map = MoxGenApi::createNodeMap(description, memory, "fuzz"); });
    MOX_FUZZ_CHECK(memory.accesses == 0);
    if (!isMade)
        return 0;

    NodeList_t nodes;
    map->GetNodes(nodes);
    MOX_FUZZ_CHECK(nodes.size() == map->GetNumNodes());
    for (INode *node : nodes) {
        MOX_FUZZ_CHECK(map->GetNode(node->GetName()) == node);
        ask(*node);
    }
    compareCaches(nodes);
    for (INode *node : nodes)
        write(*node);
    compareCaches(nodes);
    map->Poll(1000);
    compareCaches(nodes);

    // Nor may they after accesses that failed half-way.
    memory.failAt = 2 + static_cast<long>(size % 5);
    for (INode *node : nodes) {
        ask(*node);
        write(*node);
    }
    memory.failAt = 0;
    compareCaches(nodes);
    return 0;
}
