// Formulas: the input is the text of one, over the variables A, B and C.
#include "fuzzer.h"
#include "genapi/nodemapfactory.h"
#include "memory.h"

#include <optional>

using namespace GenApi;

namespace {

std::string escaped(const std::string &text)
{
    std::string xml;
    for (char c : text) {
        // What no XML may hold never gets as far as a formula.
        if (static_cast<unsigned char>(c) >= 0x80 || (static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n'))
            c = '#';
        xml += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, c);
    }
    return xml;
}

/** The same formula in several guises, as nodes of both kinds. */
std::string description(const std::string &formula)
{
    const std::string text = escaped(formula);
    const std::string variables = "<pVariable Name='A'>A</pVariable><pVariable Name='A.Max'>A</pVariable>"
                                  "<pVariable Name='B'>B</pVariable><pVariable Name='C'>C</pVariable>";
    std::string xml = "<RegisterDescription><Category Name='Root'/><Integer Name='A'><Value>-7</Value></Integer>"
                      "<Integer Name='B'><Value>0x7fffffffffffffff</Value></Integer><Float Name='C'><Value>0.75</Value>"
                      "</Float>";
    for (const std::string &kind : {std::string("IntSwissKnife"), std::string("SwissKnife")}) {
        const auto add = [&](const char *name, const std::string &before, const std::string &formulaText) {
            xml += '<' + kind + " Name='" + kind + name + "'>" + variables + before + "<Formula>" + formulaText
                + "</Formula></" + kind + '>';
        };
        add("Plain", {}, text);
        add("Grouped", {}, "(" + text + ")");
        add("Named", "<Expression Name='WHOLE'>" + text + "</Expression>", "WHOLE");
    }
    return xml + "</RegisterDescription>";
}

/** The value as text; nothing when the formula cannot be evaluated. */
std::optional<std::string> valueOf(INodeMap &map, const std::string &name)
{
    auto *value = dynamic_cast<IValue *>(map.GetNode(name.c_str()));
    MOX_FUZZ_CHECK(value);
    try {
        return value->ToString().c_str();
    } catch (const GenICam::GenericException &) {
        return std::nullopt;
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 4096)
        return -1;
    const std::string formula(reinterpret_cast<const char *>(data), size);
    MoxFuzz::Memory memory({});
    const auto map = MoxGenApi::createNodeMap(description(formula), memory, "fuzz");
    for (const std::string &kind : {std::string("IntSwissKnife"), std::string("SwissKnife")}) {
        const auto plain = valueOf(*map, kind + "Plain");
        // Parentheses and names nest deeper, which has a limit; "WHOLE" within the formula is itself there.
        const auto grouped = valueOf(*map, kind + "Grouped");
        const auto named = valueOf(*map, kind + "Named");
        if (plain && grouped)
            MOX_FUZZ_CHECK(*plain == *grouped);
        if (plain && named)
            MOX_FUZZ_CHECK(*plain == *named);
        if (size < 64 && plain)
            MOX_FUZZ_CHECK(grouped && (named || formula.find("WHOLE") != std::string::npos));
    }
    return 0;
}
