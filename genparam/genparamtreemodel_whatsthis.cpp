// The description of a node, in HTML.
#include "genparamtreemodel.h"
#include "genparamtreemodel_p.h"

#include <QStringList>

using namespace GenApi;

namespace {

QString typeName(EInterfaceType type)
{
    switch (type) {
    case intfIInteger:
        return GenParamTreeModel::tr("Integer");
    case intfIBoolean:
        return GenParamTreeModel::tr("Boolean");
    case intfICommand:
        return GenParamTreeModel::tr("Command");
    case intfIFloat:
        return GenParamTreeModel::tr("Float");
    case intfIString:
        return GenParamTreeModel::tr("String");
    case intfIEnumeration:
        return GenParamTreeModel::tr("Enumeration");
    default:
        return {};
    }
}

void addSelectors(QStringList &lines, IValue *value)
{
    const CSelectorPtr selector(value);
    if (!selector)
        return;
    FeatureList_t selecting;
    selector->GetSelectingFeatures(selecting);
    QStringList names;
    for (IValue *feature : selecting)
        names << toQString(nodeOf(feature).GetDisplayName());
    if (!names.isEmpty())
        lines << GenParamTreeModel::tr("<i>Selectors:</i> %1").arg(names.join(QLatin1Char(',')));
}

/** Limits, increment and valid values of a number, each given as text by @p text, those of a list by @p listed. */
template<class Node, class Text, class Listed> void addRange(QStringList &lines, Node *node, Text text, Listed listed)
{
    const EIncMode mode = node->GetIncMode();
    if (mode == listIncrement) {
        const auto values = node->GetListOfValidValues(true);
        QStringList texts;
        for (std::size_t i = 0; i < values.size(); ++i)
            texts << listed(values[i]);
        lines << GenParamTreeModel::tr("<i>Valid values</i>: %1").arg(texts.join(QLatin1Char(',')));
        return;
    }
    lines << GenParamTreeModel::tr("<i>Limits</i>: Min: %1, Max: %2").arg(text(node->GetMin()), text(node->GetMax()));
    if (mode == fixedIncrement)
        lines << GenParamTreeModel::tr("<i>Increment</i>: %1").arg(text(node->GetInc()));
}

// Addresses included: their limits are plain numbers.
void addIntegerRange(QStringList &lines, IInteger *integer)
{
    const bool isHex = integer->GetRepresentation() == HexNumber;
    const auto text = [](std::int64_t number) { return QString::number(number); };
    addRange(lines, integer, text, [isHex, text](std::int64_t number) {
        return isHex ? QLatin1String("0x") + QString::number(number, 16) : text(number);
    });
}

void addFloatRange(QStringList &lines, IFloat *number)
{
    const int precision = digitsOf(*number);
    addRange(
        lines, number, [precision](double real) { return QString::number(real, 'f', precision); },
        [](double real) { return QString::number(real, 'g', 6); });
}

void addEntries(QStringList &lines, IEnumeration *enumeration)
{
    lines << GenParamTreeModel::tr("<i>Enumeration entries</i>:");
    NodeList_t entries;
    enumeration->GetEntries(entries);
    for (INode *node : entries) {
        const CEnumEntryPtr entry(node);
        const std::int64_t number = entry->GetValue();
        const QString hex = QStringLiteral("%1").arg(number, 8, 16, QLatin1Char('0'));
        lines << QStringLiteral("\"%1\": %2 (0x%3)").arg(toQString(entry->GetSymbolic()), QString::number(number), hex);
    }
}

void addLines(QStringList &lines, const GenParamTreeModelPrivate &d, IValue *value, INode &node)
{
    lines << GenParamTreeModel::tr("<i>Name:</i> %1").arg(toQString(node.GetName()));
    const EInterfaceType type = node.GetPrincipalInterfaceType();
    const QString kind = typeName(type);
    if (!kind.isEmpty())
        lines << GenParamTreeModel::tr("<i>Type:</i> %1").arg(kind);
    addSelectors(lines, value);
    switch (type) {
    case intfIInteger:
        addIntegerRange(lines, CIntegerPtr(value));
        break;
    case intfIFloat:
        addFloatRange(lines, CFloatPtr(value));
        break;
    case intfIEnumeration:
        addEntries(lines, CEnumerationPtr(value));
        break;
    default:
        break;
    }
    lines << GenParamTreeModel::tr("<i>Description:</i> %1").arg(toQString(node.GetDescription()));
    lines << GenParamTreeModel::tr("<i>Streamable:</i> %1")
                 .arg(node.IsStreamable() ? GenParamTreeModel::tr("True") : GenParamTreeModel::tr("False"));
    lines << GenParamTreeModel::tr("<i>Cachable:</i> %1").arg(d.CacheModeToStr(node.GetCachingMode()));
}

} // namespace

QVariant GenParamTreeModelPrivate::WhatsThis(IValue *value) const
{
    INode &node = nodeOf(value);
    QStringList lines;
    try {
        addLines(lines, *this, value, node);
    } catch (const GenICam::GenericException &) {
        // What the node could tell stays.
    }
    return lines.join(QStringLiteral("<br />"));
}

QString GenParamTreeModelPrivate::CacheModeToStr(ECachingMode mode) const
{
    switch (mode) {
    case NoCache:
        return QStringLiteral("NoCache");
    case WriteThrough:
        return QStringLiteral("WriteThrough");
    case WriteAround:
        return QStringLiteral("WriteAround");
    default:
        return QStringLiteral("Undefined");
    }
}
