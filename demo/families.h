// The families of exported functions that the demo opens.
#ifndef MOXDEMO_FAMILIES_H
#define MOXDEMO_FAMILIES_H

#include <array>

namespace MoxDemo {

enum class Family { Select, ParameterTree, Configuration, Action, Gallery };

/** One row of the main window's column, and one word of the command line. Texts are plain ASCII. */
struct FamilyInfo
{
    Family family;
    const char *key; ///< what `--open` calls it
    const char *caption;
    const char *purpose; ///< a second line below the caption
    const char *function; ///< the exported function that opens it, or what is shown instead of its name
};

constexpr std::array<FamilyInfo, 5> families = {{
    {Family::Select, "select", "Select a camera", "In a modal dialog", "SelectCameraA"},
    {Family::ParameterTree, "tree", "Parameter tree", "All features, with live values",
     "CreateGenParamTreeViewForArrayA"},
    {Family::Configuration, "config", "Camera configuration", "Frames, trigger, strobe, colour", "MoxCamConfig"},
    {Family::Action, "action", "Action commands", "One event on many cameras", "MoxCameraActionDialog"},
    {Family::Gallery, "gallery", "Value widgets", "Spin boxes and sliders", "What the dialogs are made of"},
}};

} // namespace MoxDemo

#endif
