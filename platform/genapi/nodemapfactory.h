// Makes a node map out of a description and a port.
#ifndef MOXGENAPI_NODEMAPFACTORY_H
#define MOXGENAPI_NODEMAPFACTORY_H

#include <GenApi/GenApi.h>

#include <memory>
#include <string>

namespace MoxGenApi {

/**
 * Builds the nodes of @p description (GenICam XML; bytes in front of the XML are passed over) over @p port.
 *
 * The port must outlive the map. Reading the description accesses no register. Throws RuntimeException with a reason
 * that a user understands when the text is not XML, is cut short, is no register description or lacks a Root category;
 * references to nodes that are not there are tolerated until something reads through them.
 */
MOXSDK_EXPORT std::unique_ptr<GenApi_3_0::INodeMap>
createNodeMap(const std::string &description, GenApi_3_0::IPort &port, const std::string &deviceName);

} // namespace MoxGenApi

#endif
