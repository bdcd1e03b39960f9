// The parameter tree over a description that nobody vouches for: the input is that of the fuzzer of descriptions.
#include "application.h"
#include "fuzzer.h"
#include "genapi/nodemapfactory.h"
#include "genparamcontroldata.h"
#include "genparamtreemodel.h"
#include "memory.h"

#include <QWidget>

namespace {

/** Looks at a row as a view does, opens its editor and writes; then the rows below it. */
void visit(GenParamTreeModel &model, const QModelIndex &parent, int depth, int &left)
{
    for (int row = 0; row < model.rowCount(parent) && left > 0; ++row) {
        --left;
        for (int column : {0, 1}) {
            const QModelIndex index = model.index(row, column, parent);
            MOX_FUZZ_CHECK(index.isValid());
            for (int role : {Qt::DisplayRole, Qt::EditRole, Qt::ToolTipRole, Qt::WhatsThisRole, Qt::ForegroundRole})
                model.data(index, role);
        }
        const QModelIndex cell = model.index(row, 1, parent);
        const QVariant editor = model.data(cell, ControlDataRole);
        if (editor.canConvert<ControlData>())
            delete editor.value<ControlData>().widget;
        if (model.flags(cell) & Qt::ItemIsEditable) {
            model.setData(cell, model.data(cell, Qt::EditRole));
            model.setData(cell, QStringLiteral("1"));
            model.setData(cell, 1.5);
        }
        if (depth < 8)
            visit(model, model.index(row, 0, parent), depth + 1, left);
    }
}

/** Counts the rows below a category, as far as @p left goes: one that is listed twice has its rows twice, and so on below. */
void countRows(GenApi::ICategory *category, int &left)
{
    if (!category)
        return;
    GenApi::FeatureList_t features;
    category->GetFeatures(features);
    for (GenApi::IValue *feature : features) {
        if (--left < 0)
            return;
        countRows(dynamic_cast<GenApi::ICategory *>(feature), left);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 16384)
        return -1;
    MoxFuzz::needApplication();
    MoxFuzz::Input input(data, size);
    const std::string description = input.until('\0');
    MoxFuzz::Memory memory(input.rest());
    try {
        const auto map = MoxGenApi::createNodeMap(description, memory, "fuzz");
        int left = 500; // rows
        countRows(dynamic_cast<GenApi::ICategory *>(map->GetNode("Root")), left);
        if (left < 0)
            return -1;
        left = 500;
        GenParamTreeModel model(map.get());
        visit(model, {}, 0, left);
        map->Poll(1000);
    } catch (const GenICam_3_0::GenericException &) {
        // No description, or one that cannot even be listed.
    }
    return 0;
}
