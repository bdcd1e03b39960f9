/**
 * @file
 * The entry functions of the library: one call opens one dialog.
 *
 * All of them work on the calling thread, which must be the GUI thread. When the process has no application object yet,
 * the first call makes a QApplication, which then lives to the end of the process, and the calling thread becomes the
 * GUI thread. An application object that is no QApplication is taken as it is, and Qt ends the process at the first
 * widget. Exceptions of the SDK pass through to the caller, except those thrown inside a dialog's event loop, which Qt
 * does not support.
 *
 * The forms that end in A take a title in UTF-8, those that end in W one of 32-bit code points; both end at the first
 * zero. A null title is an empty one.
 */
#ifndef MOXCAMERAGUIAPI_H
#define MOXCAMERAGUIAPI_H

#include "moxcameraguiapi_global.h"

namespace GenApi_3_0 {
struct INodeMap;
}

namespace MoxCam {
class Device;
class DeviceInfo;
class System;
} // namespace MoxCam

namespace MoxGenParam {
class Array;
}

namespace MoxGui {
class IMoxGenParamTreeView;
}

extern "C" {

/**
 * Lets the user pick a camera in a modal dialog and returns when it is closed; while it polls, closing it takes up to a
 * second and one enumeration.
 *
 * The dialog is modal to its parent window. Without a parent the application's own windows stay usable meanwhile, so it
 * has to keep its user from opening a second one.
 *
 * @p system must not be null and must outlive the call. With @p poll the dialog starts out watching for cameras that
 * come and go; the user can change that.
 *
 * @p parent is a native window handle, or 0 for none. Its window is taken into a hidden widget of this process, which
 * becomes the dialog's parent and stays to the end of the process, one for each call; the window leaves the screen with
 * it. So give a window that is made for this, not one to be seen again. It must outlive the call. A handle of
 * no window leaves the dialog over an empty widget.
 *
 * Returns the camera, which belongs to @p system, or null when the dialog was closed otherwise or no camera was current.
 */
MOXGUI_EXPORT MoxCam::DeviceInfo *SelectCameraA(MoxCam::System *system, const char *title, unsigned long parent,
                                                bool poll);
/** As SelectCameraA, with a wide title. */
MOXGUI_EXPORT MoxCam::DeviceInfo *SelectCameraW(MoxCam::System *system, const wchar_t *title, unsigned long parent,
                                                bool poll);

/**
 * Shows the action command console over @p system and returns at once; the window is not modal. A process has one console:
 * the first call makes it, over its @p system and @p parent, and later calls show it again under their @p title, whatever
 * else they say. Closing it hides it only. It lives to the end of the process, so never delete it; a call after that
 * would still use it. When the first call throws, the next one starts anew.
 *
 * @p system must not be null and must live as long as the console is used. @p parent is a native window handle, or 0 for
 * none. Its window is taken into a hidden widget of this process, as SelectCameraA does, and let go of before the call
 * returns; the widget stays as the console's parent.
 */
MOXGUI_EXPORT void ActionCameraA(MoxCam::System *system, const char *title, unsigned long parent);
/** As ActionCameraA, with a wide title. */
MOXGUI_EXPORT void ActionCameraW(MoxCam::System *system, const wchar_t *title, unsigned long parent);

/**
 * Opens a parameter tree window over the node map of @p params and returns at once; the window is not modal.
 *
 * @p params must not be null. It must outlive the window, or be taken from it before, as MoxGui::IMoxGenParamTreeView in
 * moxgenparamtreeview.h tells.
 *
 * @p parent is the native handle of a widget of this process, which becomes the window's parent. With 0, and with the
 * handle of anything else, the window has none.
 *
 * The window is the caller's, to be ended by DestroyGenParamTreeView(); closing it hides it only. A parent that goes first
 * takes it along.
 */
MOXGUI_EXPORT MoxGui::IMoxGenParamTreeView *CreateGenParamTreeViewForArrayA(MoxGenParam::Array *params,
                                                                            const char *title, unsigned long parent);
/** As CreateGenParamTreeViewForArrayA, with a wide title. */
MOXGUI_EXPORT MoxGui::IMoxGenParamTreeView *CreateGenParamTreeViewForArrayW(MoxGenParam::Array *params,
                                                                            const wchar_t *title, unsigned long parent);
/** As CreateGenParamTreeViewForArrayA, over a node map. A null one opens an empty window. */
MOXGUI_EXPORT MoxGui::IMoxGenParamTreeView *CreateGenParamTreeViewForNodemapA(GenApi_3_0::INodeMap *nodemap,
                                                                              const char *title, unsigned long parent);
/** As CreateGenParamTreeViewForNodemapA, with a wide title. */
MOXGUI_EXPORT MoxGui::IMoxGenParamTreeView *
CreateGenParamTreeViewForNodemapW(GenApi_3_0::INodeMap *nodemap, const wchar_t *title, unsigned long parent);
/** Closes and deletes a parameter tree window before it returns. Null does nothing. */
MOXGUI_EXPORT void DestroyGenParamTreeView(MoxGui::IMoxGenParamTreeView *view);

/**
 * Takes a configuration window of a camera through its life: makes it, shows it, and deletes it before returning. The user
 * sees nothing that lasts; for a window that stays, make an object of its class. What lasts is what making and showing it
 * does to the camera: nothing, but that on a camera with frames A and B the main window chooses the frame that is sent,
 * where only one is, and selects the other frame and goes back, to read its figures. A refusal is told in a message box.
 * What the Frame A/B dialog, which the main window has, does to a frame that is selected is told with its class.
 *
 * @p device stays the caller's. It may be null: the main window lets the user select a camera first then, in a modal
 * dialog, and the dialogs are disabled. All of them leave subscriptions to parameters of the device behind, which the open
 * SDK drops by itself; with another SDK the device must be released or send no parameter updates any more.
 *
 * @p parent is the native handle of a widget of this process, which is the window's parent as long as it is there. With
 * 0, and with the handle of anything else, the window has none.
 */
MOXGUI_EXPORT void ShowCamConfigDialog(MoxCam::Device *device, unsigned long parent);
/** As ShowCamConfigDialog, with the dialog for colour. */
MOXGUI_EXPORT void ShowColorDialog(MoxCam::Device *device, unsigned long parent);
/** As ShowColorDialog, and with the same dialog. The one for frames A and B is MoxGui::MoxCamConfigFrameABDialog. */
MOXGUI_EXPORT void ShowFrameABDialog(MoxCam::Device *device, unsigned long parent);
/** As ShowCamConfigDialog, with the dialog for data output. */
MOXGUI_EXPORT void ShowOutputDialog(MoxCam::Device *device, unsigned long parent);
/** As ShowCamConfigDialog, with the dialog for the pulse generator. */
MOXGUI_EXPORT void ShowPulseDialog(MoxCam::Device *device, unsigned long parent);
/** As ShowCamConfigDialog, with the dialog for strobes. */
MOXGUI_EXPORT void ShowStrobeDialog(MoxCam::Device *device, unsigned long parent);
/** As ShowCamConfigDialog, with the dialog for the trigger. */
MOXGUI_EXPORT void ShowTriggerDialog(MoxCam::Device *device, unsigned long parent);
}

#endif
