#include "valueparams.h"

namespace MoxSdk {

MoxCamErr IntParam::SetValue(std::int64_t value)
{
    return write([&] { m_value.SetValue(value); });
}

std::int64_t IntParam::GetValue(MoxCamErr *err)
{
    return read(err, [this] { return m_value.GetValue(); });
}

std::int64_t IntParam::GetMin(MoxCamErr *err)
{
    return read(err, [this] { return m_value.GetMin(); });
}

std::int64_t IntParam::GetMax(MoxCamErr *err)
{
    return read(err, [this] { return m_value.GetMax(); });
}

std::int64_t IntParam::GetIncrement(MoxCamErr *err)
{
    return read(err, [this] { return m_value.GetInc(); });
}

MoxCamErr BooleanParam::SetValue(bool value)
{
    return write([&] { m_value.SetValue(value); });
}

bool BooleanParam::GetValue(MoxCamErr *err)
{
    return read(err, [this] { return m_value.GetValue(); });
}

MoxCamErr CommandParam::Execute()
{
    return write([this] { m_value.Execute(); });
}

const char *StringParam::GetValue(MoxCamErr *err)
{
    return readText(err, [this] { return m_value.GetValue(); });
}

} // namespace MoxSdk
