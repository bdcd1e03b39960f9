// What a device tree has fetched, in the words of MoxTest::FakeSystem::outline().
#ifndef MOX_OUTLINE_H
#define MOX_OUTLINE_H

#include "devicetreemodel.h"

#include <string>

inline std::string outline(const DeviceTreeModel &model)
{
    std::string text;
    for (int i = 0; i < model.rowCount(); ++i) {
        const QModelIndex iface = model.index(i, 0);
        text += model.getItemID(iface).toStdString() + '[';
        for (int k = 0; k < model.rowCount(iface); ++k)
            text += model.getItemID(model.index(k, 0, iface)).toStdString() + ' ';
        text += ']';
    }
    return text;
}

/** Fetches as an expanding view does. */
inline void fetchAll(DeviceTreeModel &model)
{
    model.fetchMore({});
    for (int i = 0; i < model.rowCount(); ++i)
        model.fetchMore(model.index(i, 0));
}

#endif
