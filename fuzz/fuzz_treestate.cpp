// The state text of the parameter tree: the input is what an application kept, or says that it did.
#include "application.h"
#include "fuzzer.h"
#include "genapi/nodemapfactory.h"
#include "memory.h"
#include "moxgenparamtreeview.h"

#include <QSplitter>
#include <QTreeView>

using MoxGui::MoxGenParamTreeView;

namespace {

// Names within names, one that ends like an entry, and one that needs UTF-8. A name with one of the other markers in it is
// not made good: the state of such a tree comes back with another width or level.
const char description[] =
    "<RegisterDescription><Category Name='Root'><pFeature>A</pFeature><pFeature>AB</pFeature><pFeature>Marks</pFeature>"
    "</Category><Category Name='A'><pFeature>B</pFeature><pFeature>V</pFeature></Category><Category Name='B'>"
    "<pFeature>C</pFeature></Category><Category Name='C'><pFeature>V</pFeature></Category><Category Name='AB'>"
    "<pFeature>D</pFeature><pFeature>G</pFeature></Category><Category Name='D'><DisplayName>A/B</DisplayName>"
    "<pFeature>V</pFeature></Category><Category Name='G'><Visibility>Guru</Visibility><pFeature>V</pFeature></Category>"
    "<Category Name='Marks'><DisplayName>&amp;lt;\xc3\xb6</DisplayName><pFeature>V</pFeature></Category>"
    "<Integer Name='V'><Value>1</Value></Integer></RegisterDescription>";

/** The text behind the entries of expanded categories. */
std::string tailOf(const std::string &state)
{
    return state.substr(state.rfind("&amp;W"));
}

std::size_t entriesOf(const std::string &state)
{
    return state.rfind("&amp;W");
}

std::string load(MoxGenParamTreeView &view, const char *state)
{
    view.loadState(state);
    return view.saveState();
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 2048)
        return -1;
    MoxFuzz::needApplication();
    static MoxFuzz::Memory memory({});
    static const auto map = MoxGenApi::createNodeMap(description, memory, "fuzz");
    // They live to the end: making dialogs takes much longer than all the rest.
    static auto *const view = new MoxGenParamTreeView(map.get(), nullptr);
    static auto *const other = new MoxGenParamTreeView(map.get(), nullptr);
    static const std::string fresh = view->saveState();
    const std::string text(reinterpret_cast<const char *>(data), size);
    QCoreApplication::sendPostedEvents(); // which would pile up

    // Whatever the last input has left, the first state comes back.
    for (MoxGenParamTreeView *one : {view, other}) {
        one->setVisibility(MoxGui::VisibilityBasic);
        MOX_FUZZ_CHECK(load(*one, fresh.c_str()) == fresh);
    }

    std::string state = load(*view, text.c_str());
    if (text.c_str()[0] == '\0')
        MOX_FUZZ_CHECK(state == fresh);
    MOX_FUZZ_CHECK(view->visibility() >= -1 && view->visibility() <= MoxGui::VisibilityGuru);
    MOX_FUZZ_CHECK(view->treeView()->columnWidth(0) > 0);
    const auto *splitter = view->findChild<QSplitter *>();
    MOX_FUZZ_CHECK(splitter->count() == 2 && splitter->handleWidth() < 100);
    if (view->visibility() < 0)
        return 0; // hides every row

    // What was saved comes back. A category whose path is a part of another's entry is expanded besides, and then counts
    // itself, so the entries grow until none is left to join them; nothing else changes.
    for (int round = 0;; ++round) {
        MOX_FUZZ_CHECK(round < 8);
        const std::string kept = state;
        // The pointer that was given out may be given back.
        state = round == 0 ? load(*view, view->saveState()) : load(*view, kept.c_str());
        if (tailOf(state) != tailOf(kept))
            std::fprintf(stderr, "%s\nbecame\n%s\n", kept.c_str(), state.c_str());
        MOX_FUZZ_CHECK(tailOf(state) == tailOf(kept));
        MOX_FUZZ_CHECK(entriesOf(state) >= entriesOf(kept));
        if (state == kept)
            break;
    }

    // And so in another dialog that shows the same level.
    other->setVisibility(view->visibility());
    MOX_FUZZ_CHECK(load(*other, state.c_str()) == state);
    return 0;
}
