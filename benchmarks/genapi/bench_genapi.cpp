// Measures the node map: building it, walking all features for the first time, and walking them again.
//
//   bench_genapi                  synthetic descriptions of 200, 2000 and 20000 features, with the growth between them
//   bench_genapi <description>    one description file over a port that answers zeros
#include "genapi/nodemapfactory.h"
#include "syntheticdevice.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

using namespace GenApi;
using namespace MoxBench;

namespace {

int features = 0;

void walk(ICategory &category)
{
    FeatureList_t list;
    category.GetFeatures(list);
    for (IValue *value : list) {
        ++features;
        if (auto *inner = dynamic_cast<ICategory *>(value)) {
            walk(*inner);
            continue;
        }
        try {
            value->GetNode()->GetDisplayName();
            if (!IsReadable(value))
                continue;
            if (auto *integer = dynamic_cast<IInteger *>(value)) {
                integer->GetMin();
                integer->GetMax();
            } else if (auto *real = dynamic_cast<IFloat *>(value)) {
                real->GetMin();
                real->GetMax();
            }
            value->ToString();
        } catch (const GenICam::GenericException &) {
            // Zeros are no valid state of a real camera everywhere.
        }
    }
}

double milliseconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

struct Figures
{
    double parse = 0, first = 0, second = 0, poll = 0, duePoll = 0;
};

Figures measure(const std::string &label, const std::string &description)
{
    CountingPort port;
    std::unique_ptr<INodeMap> map;
    Figures figures;
    figures.parse = milliseconds([&] { map = MoxGenApi::createNodeMap(description, port, "bench"); });
    auto &root = dynamic_cast<ICategory &>(*map->GetNode("Root"));
    features = 0;
    figures.first = milliseconds([&] { walk(root); });
    const long firstAccesses = port.accesses;
    const int count = features;
    constexpr int repetitions = 20;
    figures.second = milliseconds([&] {
                         for (int i = 0; i < repetitions; ++i)
                             walk(root);
                     })
        / repetitions;
    const long cachedAccesses = (port.accesses - firstAccesses) / repetitions;
    // The first poll finds nothing due, the second one every polled node of the synthetic descriptions.
    figures.poll = milliseconds([&] { map->Poll(1); });
    figures.duePoll = milliseconds([&] { map->Poll(1000); });
    std::printf("%-12s %9d %8llu %10.2f %10.2f %10.3f %10.4f %10.4f %9ld %9ld\n", label.c_str(), count,
                static_cast<unsigned long long>(map->GetNumNodes()), figures.parse, figures.first, figures.second,
                figures.poll, figures.duePoll, firstAccesses, cachedAccesses);
    return figures;
}

} // namespace

int main(int argc, char **argv)
{
    std::printf("%-12s %9s %8s %10s %10s %10s %10s %10s %9s %9s\n", "description", "features", "nodes", "parse ms",
                "walk ms", "again ms", "poll ms", "due ms", "accesses", "again");
    if (argc > 1) {
        std::ifstream file(argv[1], std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        try {
            measure("file", text.str());
        } catch (const GenICam::GenericException &error) {
            std::fprintf(stderr, "%s\n", error.GetDescription());
            return 1;
        }
        return 0;
    }
    Figures before;
    for (const int count : {200, 2000, 20000}) {
        const Figures now = measure("synthetic", syntheticDescription(count));
        if (before.parse > 0)
            std::printf("%-12s %20s %9.1fx %9.1fx %9.1fx\n", "  growth", "10.0x features", now.parse / before.parse,
                        now.first / before.first, now.second / before.second);
        before = now;
    }
    return 0;
}
