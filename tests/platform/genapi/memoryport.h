// A port over counted memory that can fail or be gone, and short ways to write descriptions.
#ifndef MOXTEST_MEMORYPORT_H
#define MOXTEST_MEMORYPORT_H

#include "genapi/nodemapfactory.h"

#include <QByteArray>
#include <QString>
#include <QTest>

#include <functional>
#include <map>

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
        for (std::int64_t i = 0; i < length; ++i) {
            const auto found = memory.find(address + i);
            static_cast<std::uint8_t *>(buffer)[i] = found == memory.end() ? 0 : found->second;
        }
    }
    void Write(const void *buffer, std::int64_t address, std::int64_t length) override
    {
        ++writes;
        failWhenDue();
        for (std::int64_t i = 0; i < length; ++i)
            memory[address + i] = static_cast<const std::uint8_t *>(buffer)[i];
    }

    void put(std::int64_t address, const QByteArray &bytes)
    {
        for (char byte : bytes)
            memory[address++] = static_cast<std::uint8_t>(byte);
    }
    QByteArray bytes(std::int64_t address, int length)
    {
        QByteArray result;
        for (int i = 0; i < length; ++i)
            result.append(static_cast<char>(memory[address + i]));
        return result;
    }
    int accesses() const { return reads + writes; }

    std::map<std::int64_t, std::uint8_t> memory;
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

/** A node map over a `MemoryPort`; @p nodes follow a port named Device and a Root that lists @p features. */
class Camera
{
public:
    explicit Camera(const QByteArray &nodes, const QByteArray &features = QByteArray())
    {
        QByteArray xml = "<RegisterDescription><Category Name='Root'>";
        for (const QByteArray &feature : features.split(' '))
            xml += "<pFeature>" + feature + "</pFeature>";
        xml += "</Category><Port Name='Device'/>" + nodes + "</RegisterDescription>";
        map = MoxGenApi::createNodeMap(xml.toStdString(), port, "camera");
    }

    template<class Interface> Interface *get(const char *name) const
    {
        return dynamic_cast<Interface *>(map->GetNode(name));
    }
    GenApi::IInteger &integer(const char *name) const { return *get<GenApi::IInteger>(name); }
    GenApi::IFloat &real(const char *name) const { return *get<GenApi::IFloat>(name); }

    MemoryPort port;
    std::unique_ptr<GenApi::INodeMap> map;
};

/** A register element of that kind: length 4, RW and behind Device unless @p more says otherwise. */
inline QByteArray reg(const QByteArray &kind, const QByteArray &name, int address,
                      const QByteArray &more = QByteArray())
{
    const auto unless = [&more](const char *tag, const char *value) {
        return more.contains(QByteArray("<") + tag) ? QByteArray()
                                                    : QByteArray("<") + tag + ">" + value + "</" + tag + ">";
    };
    return "<" + kind + " Name='" + name + "'><Address>" + QByteArray::number(address) + "</Address>"
        + unless("Length", "4") + unless("AccessMode", "RW") + unless("pPort", "Device") + more + "</" + kind + ">";
}

/** The kind and text of what @p action throws, as "AccessException: text"; empty when it throws nothing. */
template<class Action> QString thrown(Action action)
{
    try {
        action();
    } catch (const GenICam::GenericException &error) {
        const QString what = QString::fromUtf8(error.what());
        const QString kind = what.section(QStringLiteral(" thrown"), -2, -2).section(QLatin1Char(' '), -1);
        return kind + QStringLiteral(": ") + QString::fromUtf8(error.GetDescription());
    }
    return QString();
}

} // namespace MoxTest

#endif
