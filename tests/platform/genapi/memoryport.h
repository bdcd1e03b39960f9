// A port over counted memory that can fail or be gone, and short ways to write and try descriptions.
#ifndef MOXTEST_MEMORYPORT_H
#define MOXTEST_MEMORYPORT_H

#include "../featurescript.h"
#include "genapi/nodemapfactory.h"

#include <QByteArray>
#include <QTest>

#include <functional>
#include <map>
#include <utility>

namespace MoxTest {

class MemoryPort : public GenApi::IPort
{
public:
    GenApi::EAccessMode GetAccessMode() const override { return mode; }
    void Read(void *buffer, std::int64_t address, std::int64_t length) override
    {
        ++reads;
        if (onRead)
            onRead(address);
        failWhenDue();
        const QByteArray found = bytes(address, int(length));
        std::copy(found.begin(), found.end(), static_cast<char *>(buffer));
    }
    void Write(const void *buffer, std::int64_t address, std::int64_t length) override
    {
        ++writes;
        failWhenDue();
        put(address, QByteArray(static_cast<const char *>(buffer), int(length)));
    }

    void put(std::int64_t address, const QByteArray &content)
    {
        for (char byte : content)
            memory[address++] = byte;
    }
    QByteArray bytes(std::int64_t address, int length)
    {
        QByteArray result;
        while (result.size() < length)
            result.append(memory[address++]);
        return result;
    }

    std::map<std::int64_t, char> memory;
    GenApi::EAccessMode mode = GenApi::RW;
    std::function<void(std::int64_t address)> onRead; // before the bytes are taken
    int reads = 0;
    int writes = 0;
    int failAt = 0; // the access of that number, counted from 1, throws; 0 for none

private:
    void failWhenDue()
    {
        if (failAt > 0 && --failAt == 0)
            throw TIMEOUT_EXCEPTION("The camera does not answer.");
    }
};

/**
 * The XML of nodes, each "Kind Name item item" and divided by "; ". An item is "@1F" for the address, "Element=text",
 * "Element.x=text" with x for the attribute that such an element has, or "Entry.On=3" for an entry of an enumeration.
 * Registers have the length 4, are RW and behind Device unless they say otherwise. XML stands for itself.
 */
inline QByteArray described(const QByteArray &nodes)
{
    QString xml;
    for (const QString &node : QString::fromUtf8(nodes).split(QStringLiteral("; "))) {
        QStringList items = node.split(QLatin1Char(' '));
        if (node.startsWith(QLatin1Char('<')) || items.size() < 2) {
            xml += node;
            continue;
        }
        const QString kind = items.takeFirst();
        xml += QStringLiteral("<%1 Name='%2'>").arg(kind, items.takeFirst());
        for (const char *usual : {"Length=4", "AccessMode=RW", "pPort=Device"}) {
            const QString item = QLatin1String(usual);
            if (kind.contains(QLatin1String("Reg")) && items.filter(item.section(QLatin1Char('='), 0, 0)).isEmpty())
                items.append(item);
        }
        for (const QString &item : qAsConst(items)) {
            const QString element = item.section(QLatin1Char('='), 0, 0).section(QLatin1Char('.'), 0, 0);
            const QString attribute = item.section(QLatin1Char('='), 0, 0).section(QLatin1Char('.'), 1);
            const QString text = item.section(QLatin1Char('='), 1).toHtmlEscaped();
            const char *const name = element == QLatin1String("pIndex") ? "Offset"
                : element.contains(QLatin1String("Indexed"))            ? "Index"
                                                                        : "Name";
            if (item.startsWith(QLatin1Char('@')))
                xml += QStringLiteral("<Address>0x%1</Address>").arg(item.mid(1));
            else if (element == QLatin1String("Entry"))
                xml += QStringLiteral("<EnumEntry Name='%1'><Value>%2</Value></EnumEntry>").arg(attribute, text);
            else if (attribute.isEmpty())
                xml += QStringLiteral("<%1>%2</%1>").arg(element, text);
            else
                xml += QStringLiteral("<%1 %2='%3'>%4</%1>").arg(element, QLatin1String(name), attribute, text);
        }
        xml += QStringLiteral("</%1>").arg(kind);
    }
    return xml.toUtf8();
}

/** A node map over a `MemoryPort`; its nodes follow a port named Device and a Root that lists @p features. */
class Camera
{
public:
    explicit Camera(const QByteArray &nodes, const QByteArray &features = QByteArray())
    {
        QByteArray xml = "<RegisterDescription><Category Name='Root'>";
        for (const QByteArray &feature : features.split(' '))
            xml += "<pFeature>" + feature + "</pFeature>";
        xml += "</Category><Port Name='Device'/>" + described(nodes) + "</RegisterDescription>";
        map = MoxGenApi::createNodeMap(xml.toStdString(), port, "camera");
        GenApi::NodeList_t all;
        map->GetNodes(all);
        for (auto node = all.rbegin(); node != all.rend(); ++node)
            GenApi::Register(*node, [this](GenApi::INode *told) { heard += QString::fromUtf8(told->GetName()); });
    }

    template<class Interface> Interface *get(const char *name) const
    {
        return dynamic_cast<Interface *>(map->GetNode(name));
    }
    GenApi::IInteger &integer(const char *name) const { return *get<GenApi::IInteger>(name); }
    GenApi::IFloat &real(const char *name) const { return *get<GenApi::IFloat>(name); }

    /**
     * Plays a script, its steps divided by "; "; gives the first step that goes wrong, and how. Besides those of
     * play(): "@1F=0102" and "@1F==0102" put and compare memory, "reads==2", "writes==2" and "heard==A B" tell of the
     * port's accesses and the nodes' callbacks since they were asked for last, "fail=2" lets the second access fail,
     * "port=NA" takes the camera away, "poll=50" lets the time pass, "all*" invalidates.
     */
    QString run(const QByteArray &script)
    {
        for (const QString &step : QString::fromUtf8(script).split(QStringLiteral("; "))) {
            const QString fault = playHere(step);
            if (!fault.isEmpty())
                return step + QStringLiteral(": ") + fault;
        }
        return QString();
    }

    MemoryPort port;
    QStringList heard; // before the node map, whose callbacks write to it
    std::unique_ptr<GenApi::INodeMap> map;

private:
    QString playHere(const QString &step)
    {
        const QString name = step.section(QLatin1Char('='), 0, 0);
        const QString argument = step.section(QLatin1Char('='), -1);
        const auto is = [&](const char *word) { return name == QLatin1String(word); };
        QString found = argument;
        if (name.startsWith(QLatin1Char('@'))) {
            const int address = name.midRef(1).toInt(nullptr, 16);
            const QByteArray bytes = QByteArray::fromHex(argument.toLatin1());
            if (step.contains(QLatin1String("==")))
                found = QString::fromLatin1(port.bytes(address, bytes.size()).toHex());
            else
                port.put(address, bytes);
        } else if (is("reads") || is("writes")) {
            found = QString::number(std::exchange(is("reads") ? port.reads : port.writes, 0));
        } else if (is("heard")) {
            found = std::exchange(heard, {}).join(QLatin1Char(' '));
        } else if (is("fail")) {
            port.failAt = argument.toInt();
        } else if (is("port")) {
            port.mode = argument == QLatin1String("NA") ? GenApi::NA
                : argument == QLatin1String("RO")       ? GenApi::RO
                                                        : GenApi::RW;
        } else if (is("poll")) {
            map->Poll(argument.toLongLong());
        } else if (is("all*")) {
            map->InvalidateNodes();
        } else {
            return play(*map, step);
        }
        return found == argument ? QString() : QStringLiteral("finds ") + found;
    }
};

} // namespace MoxTest

#endif
