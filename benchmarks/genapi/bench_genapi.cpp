// Measures the node map: building it, reading all features for the first time, and reading them again.
//
//   bench_genapi                  synthetic descriptions of 200, 2000 and 20000 features
//   bench_genapi <description>    one description file over a port that answers zeros
#include "genapi/nodemapfactory.h"
#include "syntheticdevice.h"
#include "table.h"

#include <arv.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <fstream>
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

/** What libxml2 alone needs to make a document of the text. */
void parseDocument(const std::string &text)
{
    xmlFreeDoc(xmlReadMemory(text.data(), int(text.size()), nullptr, nullptr, XML_PARSE_NOERROR | XML_PARSE_COMPACT));
}

void loadInAravis(const std::string &text)
{
    ArvGc *genicam = arv_gc_new(nullptr, text.data(), text.size());
    g_clear_object(&genicam);
}

/** Builds the map anew in each of @p rounds, since only a new one has nothing in its caches. */
void measure(Table &table, const std::string &description, int rounds)
{
    std::vector<double> document, aravis, parse, first, again, poll, duePoll;
    long firstAccesses = 0, cachedAccesses = 0;
    for (int round = 0; round < rounds; ++round) {
        CountingPort port;
        std::unique_ptr<INodeMap> map;
        document.push_back(microseconds([&] { parseDocument(description); }));
        aravis.push_back(microseconds([&] { loadInAravis(description); }));
        parse.push_back(microseconds([&] { map = MoxGenApi::createNodeMap(description, port, "bench"); }));
        auto &root = dynamic_cast<ICategory &>(*map->GetNode("Root"));
        first.push_back(microseconds([&] { walk(root); }));
        firstAccesses = port.accesses;
        features = 0;
        again.push_back(microseconds([&] { walk(root); }));
        cachedAccesses = port.accesses - firstAccesses;
        // The first poll finds nothing due, the second one every polled node of the synthetic descriptions.
        poll.push_back(microseconds([&] { map->Poll(1); }));
        duePoll.push_back(microseconds([&] { map->Poll(1000); }));
    }
    table.add("node map out of a description, beside libxml2's document", features, quickest(document),
              quickest(parse));
    table.add("node map out of a description, beside Aravis's", features, quickest(aravis), quickest(parse));
    table.add("reading all features again, beside the first time", features, quickest(first), quickest(again));
    table.add("poll with every tenth feature due, beside one with none", features, quickest(poll), quickest(duePoll));
    table.count("port accesses: reading all features", features, firstAccesses);
    table.count("port accesses: reading all features again", features, cachedAccesses);
}

} // namespace

int main(int argc, char **argv)
{
    Table table("open SDK");
    if (argc > 1) {
        std::ifstream file(argv[1], std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        try {
            measure(table, text.str(), 5);
        } catch (const GenICam::GenericException &error) {
            std::fprintf(stderr, "%s\n", error.GetDescription());
            return 1;
        }
        return 0;
    }
    for (const int count : {200, 2000, 20000})
        measure(table, syntheticDescription(count), count < 10000 ? 20 : 4);
    return 0;
}
