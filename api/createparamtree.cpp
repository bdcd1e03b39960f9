#include "bootstrap_p.h"
#include "moxcameraguiapi.h"
#include "moxgenparamtreeview.h"

namespace MoxGui {

template<class T>
static IMoxGenParamTreeView *CreateGenParamTreeView(T *params, const QString &title, unsigned long parent)
{
    ensureApplication();
    auto view = std::make_unique<MoxGenParamTreeView>(params, QWidget::find(parent));
    view->setWindowTitle(title);
    view->setModal(false);
    view->show();
    return view.release();
}

} // namespace MoxGui

MoxGui::IMoxGenParamTreeView *CreateGenParamTreeViewForArrayA(MoxGenParam::Array *params, const char *title,
                                                              unsigned long parent)
{
    return MoxGui::CreateGenParamTreeView(params, QString::fromUtf8(title), parent);
}

MoxGui::IMoxGenParamTreeView *CreateGenParamTreeViewForArrayW(MoxGenParam::Array *params, const wchar_t *title,
                                                              unsigned long parent)
{
    return MoxGui::CreateGenParamTreeView(params, QString::fromWCharArray(title), parent);
}

MoxGui::IMoxGenParamTreeView *CreateGenParamTreeViewForNodemapA(GenApi_3_0::INodeMap *nodemap, const char *title,
                                                                unsigned long parent)
{
    return MoxGui::CreateGenParamTreeView(nodemap, QString::fromUtf8(title), parent);
}

MoxGui::IMoxGenParamTreeView *CreateGenParamTreeViewForNodemapW(GenApi_3_0::INodeMap *nodemap, const wchar_t *title,
                                                                unsigned long parent)
{
    return MoxGui::CreateGenParamTreeView(nodemap, QString::fromWCharArray(title), parent);
}

void DestroyGenParamTreeView(MoxGui::IMoxGenParamTreeView *view)
{
    delete view;
}
