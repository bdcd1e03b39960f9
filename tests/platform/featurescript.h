// Little scripts over the features of a node map.
#ifndef MOX_FEATURESCRIPT_H
#define MOX_FEATURESCRIPT_H

#include <GenApi/GenApi.h>

#include <QRegularExpression>
#include <QString>

namespace MoxTest {

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

inline QString limits(GenApi::IValue *feature)
{
    if (auto *integer = dynamic_cast<GenApi::IInteger *>(feature))
        return QStringLiteral("%1..%2").arg(integer->GetMin()).arg(integer->GetMax());
    auto *real = dynamic_cast<GenApi::IFloat *>(feature);
    return QStringLiteral("%1..%2").arg(real->GetMin()).arg(real->GetMax());
}

/**
 * Does one step of a script; gives what is wrong with its outcome.
 *
 * "A=x" writes, "A:=x" writes without verification, "A!=x" too and is refused, "A==x" reads, "A?=x" reads past the
 * caches, "A()" executes, "A~RO" asks for the access mode, "A[1..9]" for the limits, "A*" invalidates. What stands
 * behind " ! " is the error that the step ends in.
 */
inline QString play(GenApi::INodeMap &map, const QString &step)
{
    static const QRegularExpression form(
        QStringLiteral("^(\\w+)(:=|!=|\\?=|==|=|~|\\(\\)|\\[|\\*)([^\\]]*?)\\]?(?: ! (.*))?$"));
    static const char *const modes[] = {"NI", "NA", "WO", "RO", "RW"};
    const QRegularExpressionMatch match = form.match(step);
    auto *feature = dynamic_cast<GenApi::IValue *>(map.GetNode(match.captured(1).toUtf8().constData()));
    if (!feature)
        return QStringLiteral("is no step");
    const auto is = [&](const char *action) { return match.captured(2) == QLatin1String(action); };
    const QString argument = match.captured(3);
    const GenApi::gcstring text(argument.toUtf8().constData());
    QString found = argument;
    const QString error = thrown([&] {
        if (is("=") || is(":=") || is("!="))
            feature->FromString(text, is("="));
        else if (is("()"))
            dynamic_cast<GenApi::ICommand *>(feature)->Execute();
        else if (is("~"))
            found = QLatin1String(modes[feature->GetAccessMode()]);
        else if (is("["))
            found = limits(feature);
        else if (is("*"))
            feature->GetNode()->InvalidateNode();
        else
            found = QString::fromUtf8(feature->ToString(false, is("?=")).c_str());
    });
    const QString expected = match.captured(4);
    if (is("!=") ? error.isEmpty() : error.isEmpty() != expected.isEmpty() || !error.contains(expected))
        return error.isEmpty() ? QStringLiteral("succeeds") : error;
    return found == argument || !error.isEmpty() ? QString() : QStringLiteral("finds ") + found;
}

} // namespace MoxTest

#endif
