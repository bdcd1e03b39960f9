#include "genparamerrorcontroller.h"

bool GenParamErrorController::SetError(const QString &name, const QString &text, int id)
{
    return errors[name].emplace(id, text).second;
}

bool GenParamErrorController::ClearError(const QString &name, int id)
{
    const auto found = errors.find(name);
    if (found == errors.end() || !found->second.erase(id))
        return false;
    if (found->second.empty())
        errors.erase(found);
    return true;
}

const QString *GenParamErrorController::FirstError(const QString &name) const
{
    const auto found = errors.find(name);
    return found == errors.end() ? nullptr : &found->second.begin()->second;
}

QString GenParamErrorController::GetErrorInfo() const
{
    QString info;
    for (const auto &[name, texts] : errors) {
        for (const auto &[id, text] : texts)
            info += QStringLiteral("{%1}{id:%3}: %2 \n").arg(name, text, QString::number(id));
    }
    return info;
}
