// A GenTL port, as far as its URLs go.
#ifndef MOX_IPORT_H
#define MOX_IPORT_H

#include <cstdint>
#include <string>
#include <vector>

namespace MoxCTI {

/** Where a port's description can be had, and in which versions. */
struct GenICamUrl
{
    std::string name; // not read by IPort
    std::uint8_t schemaVersionMajor = 0;
    std::uint8_t schemaVersionMinor = 0;
    std::uint8_t fileVersionMajor = 0;
    std::uint8_t fileVersionMinor = 0;
    std::uint16_t fileVersionSubminor = 0;
    std::string url;
};

/** What GetPortURLInfo() can be asked for. */
enum UrlInfo : int {
    UrlInfoUrl = 0, // a text
    UrlInfoSchemaVersionMajor = 1, // this and all further ones are 32-bit numbers
    UrlInfoSchemaVersionMinor = 2,
    UrlInfoFileVersionMajor = 3,
    UrlInfoFileVersionMinor = 4,
    UrlInfoFileVersionSubminor = 5
};

/** Type codes of the GenTL standard that GetPortURLInfo() gives. */
enum InfoType : int { InfoTypeString = 1, InfoTypeUInt32 = 5 };

/**
 * A port that answers queries for its URLs out of the records that a derived class gives, asked afresh at each call.
 * Nobody owns one through this class. From any thread, as far as GetPortURLs() allows it.
 *
 * Failures are std::system_error with a code of tli_category():
 *  - GC_ERR_INVALID_PARAMETER: the pointer that a result goes to is null or has all bits set; only those named as checked,
 *  - GC_ERR_INVALID_INDEX: there is no record of that index,
 *  - GC_ERR_BUFFER_TOO_SMALL: the size needed has been stored in @p piSize,
 *  - GC_ERR_NOT_IMPLEMENTED: there is no such piece of information.
 *
 * Both operations with @p piSize take the size of a buffer there, in bytes, and store the size of the result. Without a
 * buffer (null) they store the size only. A size of 0 with a buffer stands for one without a limit. Texts come with their
 * terminating zero, which counts.
 */
class IPort
{
public:
    /** Reads @p *piSize bytes at @p address into @p pBuffer, and stores in @p *piSize how many it has read. */
    virtual void Read(std::uint64_t address, void *pBuffer, unsigned long *piSize) = 0;
    /** As Read, the other way. */
    virtual void Write(std::uint64_t address, const void *pBuffer, unsigned long *piSize) = 0;
    virtual std::vector<GenICamUrl> GetPortURLs() = 0;
    /** The URL of that index; for 0xFFFFFFFF all of them in order, with nothing between them. */
    virtual std::string GetURL(unsigned int index);
    /** As above, into a buffer. @p piSize is checked, and called iDst in the failure's text. */
    virtual void GetURL(unsigned int index, char *iDst, unsigned long *piSize);
    /** What GetPortURLInfo tells of a URL, of the port itself; @p infoCmd is a command of the GenTL standard. */
    virtual void GetPortInfo(int infoCmd, int *piType, void *pBuffer, unsigned long *piSize) = 0;
    /** Stores how many URLs there are. @p iNumURLs is checked. */
    virtual void GetNumPortURLs(unsigned int *iNumURLs);
    /**
     * Stores a piece of information on one URL, named by a UrlInfo, in @p pBuffer, and its InfoType in @p *piType, which may
     * be null. @p piSize is checked after that.
     */
    virtual void GetPortURLInfo(unsigned int index, int infoCmd, int *piType, void *pBuffer, unsigned long *piSize);

protected:
    ~IPort() = default;
};

} // namespace MoxCTI

#endif
