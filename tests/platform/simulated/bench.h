// A simulated camera on the bench: firmware, clock and node map, without a world around.
#ifndef MOX_BENCH_H
#define MOX_BENCH_H

#include "genapi/nodemapfactory.h"
#include "simulated/descriptions.h"
#include "simulated/firmware.h"

#include <functional>

namespace MoxTest {

class Bench final : private GenApi_3_0::IPort
{
public:
    explicit Bench(MoxSim::Model model)
        : firmware(MoxSdk::modelDescription(model).registers, [this] { return now; }),
          map(MoxGenApi::createNodeMap(*MoxSdk::modelDescription(model).text, *this, "Device"))
    { }

    /** The features under Root, in the description's order, without the categories. */
    std::vector<GenApi_3_0::IValue *> features() const
    {
        std::vector<GenApi_3_0::IValue *> result;
        const std::function<void(GenApi_3_0::INode *)> walk = [&](GenApi_3_0::INode *node) {
            GenApi_3_0::FeatureList_t children;
            dynamic_cast<GenApi_3_0::ICategory *>(node)->GetFeatures(children);
            for (GenApi_3_0::IValue *child : children) {
                if (child->GetNode()->GetPrincipalInterfaceType() == GenApi_3_0::intfICategory)
                    walk(child->GetNode());
                else
                    result.push_back(child);
            }
        };
        walk(map->GetNode("Root"));
        return result;
    }

    std::chrono::nanoseconds now{0};
    MoxSdk::Firmware firmware;
    std::unique_ptr<GenApi_3_0::INodeMap> map;

private:
    GenApi_3_0::EAccessMode GetAccessMode() const override { return GenApi_3_0::RW; }
    void Read(void *buffer, std::int64_t address, std::int64_t length) override
    {
        firmware.read(static_cast<std::uint8_t *>(buffer), address, length);
    }
    void Write(const void *buffer, std::int64_t address, std::int64_t length) override
    {
        firmware.write(static_cast<const std::uint8_t *>(buffer), address, length);
    }
};

} // namespace MoxTest

#endif
