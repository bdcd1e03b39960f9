// Short ways to write the data of a test.
#ifndef MOX_DATAROW_H
#define MOX_DATAROW_H

#include <QTest>

#include <type_traits>

namespace MoxTest {

inline QByteArray cell(const char *text)
{
    return text;
}

template<class Value> auto cell(const Value &value)
{
    if constexpr (std::is_enum_v<Value>)
        return int(value);
    else
        return value;
}

/** Adds columns of these types, by their names. */
template<class... Types, class... Names> void columns(const Names *...names)
{
    (QTest::addColumn<Types>(names), ...);
}

/** Adds a row. Literals stand for QByteArray, null for a null one, and enumerators for int. */
template<class... Values> void row(const char *name, const Values &...values)
{
    QTestData &data = QTest::newRow(name);
    (void)(data << ... << cell(values));
}

} // namespace MoxTest

#endif
