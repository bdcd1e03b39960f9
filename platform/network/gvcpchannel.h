// The control channel of a GigE Vision camera.
#ifndef MOXSDK_GVCPCHANNEL_H
#define MOXSDK_GVCPCHANNEL_H

#include "channel.h"
#include "udpsocket.h"

namespace MoxSdk {

/**
 * Registers over GVCP. The protocol moves words of four bytes: accesses that begin or end inside a word are widened,
 * and for a write the rest of the word is read first.
 */
class GvcpChannel final : public Channel
{
public:
    /**
     * Takes control; throws AccessException when another application has it, TimeoutException when nothing answers.
     * @p stop, which may be null, ends the waits for answers while it is raised; it must outlive the channel.
     */
    GvcpChannel(const Adapter &adapter, std::uint32_t cameraAddress, std::uint16_t port = Gvcp::standardPort,
                const StopSignal *stop = nullptr);
    ~GvcpChannel() override;

    std::string description() override;
    void read(void *buffer, std::uint64_t address, std::size_t length) override;
    void write(const void *buffer, std::uint64_t address, std::size_t length) override;
    bool isAlive() override;
    std::chrono::milliseconds alivePeriod() const override { return m_alivePeriod; }

private:
    struct Reply
    {
        std::uint16_t status;
        Gvcp::Packet payload;
    };

    std::uint32_t readRegister(std::uint32_t address);
    void writeRegister(std::uint32_t address, std::uint32_t value);
    void readBlock(std::uint8_t *data, std::uint32_t address, std::size_t length);
    void writeBlock(const std::uint8_t *data, std::uint32_t address, std::size_t length);
    Reply request(std::uint16_t id, const Gvcp::Packet &command, Gvcp::Answer answer);
    /** Waits the usual time, or as long as the camera asks for; never beyond @p latest. */
    std::optional<Reply> awaitReply(std::uint16_t id, Gvcp::Answer answer, UdpSocket::Clock::time_point latest);
    static void check(const Reply &reply, std::size_t length);

    UdpSocket m_socket;
    std::chrono::milliseconds m_alivePeriod{1000};
};

} // namespace MoxSdk

#endif
