// The parameter layer over any node map.
#ifndef MOXSDK_PARAMARRAY_H
#define MOXSDK_PARAMARRAY_H

#include <MoxCameraApi/MoxGenParam.h>

#include <functional>
#include <memory>

namespace MoxSdk {

class ParamArrayPrivate;

/**
 * Features by name, with result codes made of the node map's exceptions. The node map must outlive the array; the
 * array's destructor drops every sink that is still registered, so a forgotten one is never called again.
 */
class ParamArray final : public MoxGenParam::Array
{
public:
    explicit ParamArray(GenApi_3_0::INodeMap &nodeMap);
    ~ParamArray();
    ParamArray(const ParamArray &) = delete;
    ParamArray &operator=(const ParamArray &) = delete;

    MoxGenParam::Boolean *GetBoolean(const char *name, MoxCamErr *err) override;
    MoxGenParam::Command *GetCommand(const char *name, MoxCamErr *err) override;
    MoxGenParam::Enum *GetEnum(const char *name, MoxCamErr *err) override;
    MoxGenParam::Int *GetInt(const char *name, MoxCamErr *err) override;
    MoxGenParam::String *GetString(const char *name, MoxCamErr *err) override;
    GenApi_3_0::INodeMap *GetNodeMap(MoxCamErr *err) override;
    const char *GetEnumValueStr(const char *name, MoxCamErr *err) override;
    MoxCamErr SetIntegerValue(const char *name, std::int64_t value) override;
    std::int64_t GetIntegerValue(const char *name, MoxCamErr *err) override;
    MoxCamErr ExecuteCommand(const char *name) override;

    /**
     * Drops every sink, then runs @p end, which may delete the array and the node map: at once, or, when a sink of this
     * array is being called on this thread, from the event loop after that call.
     */
    void retire(std::function<void()> end);

private:
    std::unique_ptr<ParamArrayPrivate> const d;
};

} // namespace MoxSdk

#endif
