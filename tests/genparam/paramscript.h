// Little scripts over the cells of a parameter tree.
#ifndef MOXTEST_PARAMSCRIPT_H
#define MOXTEST_PARAMSCRIPT_H

#include "genparamcontroldata.h"
#include "genparamtreemodel.h"
#include "memoryport.h"
#include "qtmoxspinboxval64.h"

#include <QBrush>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPalette>

namespace MoxTest {

/** An editor's kind, class, settings and items. Ends the editor. */
inline QString told(const ControlData &control)
{
    static const char *const properties[] = {
        "frame", "text", "frame minimum maximum singleStep displayIntegerBase accelerated keyboardTracking suffix",
        "frame minimum maximum singleStep decimals accelerated suffix", "frame alignment maxLength"};
    const std::unique_ptr<QWidget> widget(control.widget);
    QStringList text{QString::number(control.kind), QLatin1String(widget->metaObject()->className())};
    for (const QByteArray &name : QByteArray(properties[control.kind]).split(' '))
        text << widget->property(name).toString();
    if (auto *edit = qobject_cast<QLineEdit *>(widget.get()))
        text << QLatin1String(edit->validator() ? edit->validator()->metaObject()->className() : "");
    auto *spin = qobject_cast<QtMoxSpinBoxVal64 *>(widget.get());
    text << QLatin1String(spin && spin->validateStepping() ? "snaps" : "");
    text << QLatin1String(spin && spin->ignoreFocusOut() ? "ignores" : "");
    auto *box = qobject_cast<QComboBox *>(widget.get());
    for (int i = 0; box && i < box->count(); ++i)
        text << box->itemText(i) + QLatin1Char('=') + box->itemData(i).toString();
    return text.join(QLatin1Char(' ')).simplified() + QLatin1String(widget->parent() ? " owned" : "");
}

/** Texts as they are, brushes as colours, other values with their type; in brackets what is wrapped for a combo box. */
inline QString told(const QVariant &value)
{
    if (value.userType() == qMetaTypeId<ControlData>())
        return told(value.value<ControlData>());
    if (value.userType() == qMetaTypeId<VariantData>())
        return QLatin1Char('[') + told(value.value<VariantData>().value) + QLatin1Char(']');
    if (value.type() == QVariant::String)
        return value.toString().replace(QLatin1String("<br />"), QLatin1String("|"));
    if (value.type() != QVariant::Brush)
        return value.isValid() ? QLatin1String(value.typeName()) + QLatin1Char(' ') + value.toString()
                               : QStringLiteral("-");
    const QColor colour = value.value<QBrush>().color();
    const bool isGrey = colour == QPalette().color(QPalette::Disabled, QPalette::Text);
    const bool isBand = colour == QPalette().color(QPalette::Active, QPalette::Midlight);
    return isGrey ? QStringLiteral("grey") : isBand ? QStringLiteral("band") : colour.name(QColor::HexArgb);
}

/**
 * Plays scripts on a model of features of one level, their steps divided by "; ".
 *
 * "X.d==text" compares a cell of the feature X: d, e, t, f, w, c for display, edit, tool tip, foreground, what's-this and
 * control in the value's column, D, T, F, B for display, tool tip, foreground and background in the name's, m and M for
 * whether it can be edited. "X<-qlonglong 7==true" writes a value of that type and compares the answer. "told==X[2],
 * +X#256 text, -X#256" compares the cells that changed, with their roles, the errors and the ends of errors since it was
 * asked for last, with a "!" where another column than the value's is named. All other steps are the camera's.
 */
class ParamScript
{
public:
    explicit ParamScript(GenParamTreeModel &model, Camera *camera = nullptr) : m_model(model), m_camera(camera)
    {
        const auto tell = [this](const QModelIndex &index, const char *form, const QString &name, auto... rest) {
            m_told << QString::fromLatin1(form).arg(name, rest...) + QLatin1String(index.column() == 1 ? "" : "!");
        };
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &m_context, [tell](auto &from, auto &, auto &roles) {
            tell(from, "%1[%2]", nameOf(from), roles.isEmpty() ? QString() : QString::number(roles.first()));
        });
        QObject::connect(&model, &GenParamTreeModel::errorAppeared, &m_context,
                         [tell](auto &cell, auto &name, auto &text, int id) {
                             tell(cell, "+%1#%2 %3", name, QString::number(id), text);
                         });
        QObject::connect(&model, &GenParamTreeModel::errorDisappeared, &m_context,
                         [tell](auto &cell, auto &name, int id) { tell(cell, "-%1#%2", name, QString::number(id)); });
    }

    static QString nameOf(const QModelIndex &index)
    {
        return QString::fromUtf8(index.data(IValueRole).value<GenApi::IValue *>()->GetNode()->GetName());
    }

    /** The first step that goes wrong, and how. */
    QString run(const QString &script)
    {
        static const QRegularExpression form(QStringLiteral("^(?:(\\w+)\\.(\\w)|(\\w+)<-(\\w+) (.*)|told)==(.*)$"));
        for (const QString &step : script.split(QStringLiteral("; "))) {
            const QRegularExpressionMatch match = form.match(step);
            const auto part = [&match](int i) { return match.captured(i); };
            QString found = part(6);
            if (!match.hasMatch())
                found = m_camera->run(step.toUtf8());
            else if (!part(1).isEmpty())
                found = read(part(1), part(2).at(0));
            else if (!part(3).isEmpty())
                found = write(part(3), part(4), part(5));
            else
                found = std::exchange(m_told, {}).join(QStringLiteral(", "));
            if (found != part(6))
                return step + QStringLiteral(": finds ") + found;
        }
        return QString();
    }

private:
    QModelIndex cell(const QString &name, int column) const
    {
        int row = 0;
        while (nameOf(m_model.index(row, 0)) != name)
            ++row;
        return m_model.index(row, column);
    }
    QString read(const QString &name, QChar what) const
    {
        const QModelIndex index = cell(name, what.isUpper() ? 0 : 1);
        if (what.toLower() == QLatin1Char('m'))
            return QVariant(m_model.flags(index).testFlag(Qt::ItemIsEditable)).toString();
        const int role = QStringLiteral("d_et_w__bf").indexOf(what.toLower());
        return told(index.data(role < 0 ? int(ControlDataRole) : role));
    }
    QString write(const QString &name, const QString &type, const QString &text)
    {
        QVariant value(text);
        value.convert(int(QVariant::nameToType(type.toLatin1())));
        return QVariant(m_model.setData(cell(name, 1), value)).toString();
    }

    GenParamTreeModel &m_model;
    Camera *m_camera;
    QObject m_context; // on the thread of the test
    QStringList m_told;
};

/** Rows of a test out of files, one a line: name, nodes as described() takes them, and a script. */
inline void addRows(const QStringList &fileNames)
{
    QTest::addColumn<QString>("nodes");
    QTest::addColumn<QString>("script");
    for (const QString &fileName : fileNames) {
        QFile file(fileName);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(fileName));
        for (const QString &line :
             QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), QString::SkipEmptyParts)) {
            const QStringList row = line.split(QStringLiteral(" | "));
            if (!line.startsWith(QLatin1Char('#')))
                QTest::newRow(qPrintable(row.at(0))) << row.at(1) << row.at(2);
        }
    }
}

} // namespace MoxTest

#endif
