// The register side of a node: where its bytes are, reading and writing them, and keeping what was read.
#ifndef MOXGENAPI_REGISTERACCESS_H
#define MOXGENAPI_REGISTERACCESS_H

#include "node.h"

#include <GenApi/IPort.h>
#include <GenApi/Values.h>

#include <functional>
#include <vector>

namespace MoxGenApi {

using Bytes = std::vector<std::uint8_t>;

/**
 * Half of a register node, beside the half that tells what the bytes mean. It finds the address (constants, nodes,
 * indexes), moves bytes through the port and keeps them until the node is forgotten.
 */
class RegisterAccess : public virtual GenApi::IRegister
{
public:
    void Set(const std::uint8_t *buffer, std::int64_t length, bool verify) override;
    void Get(std::uint8_t *buffer, std::int64_t length, bool verify, bool ignoreCache) override;
    std::int64_t GetLength() override;
    std::int64_t GetAddress() override;

    std::int64_t address();
    std::int64_t length();
    /** The bytes in the device's order, from the port or as kept. */
    Bytes bytes(bool ignoreCache);
    void setBytes(const Bytes &bytes);

    std::int64_t heldLength() const { return static_cast<std::int64_t>(m_held.size()); }
    /** Takes over what another node wrote to a part of the bytes kept here. */
    void patch(std::int64_t address, const Bytes &bytes);
    /** The bits that this node shows of the byte at that position; a whole register shows all of them. */
    virtual std::uint8_t shownBits(std::size_t index) const;

protected:
    explicit RegisterAccess(Node &node) : m_node(node) { }
    ~RegisterAccess() override;
    RegisterAccess(const RegisterAccess &) = delete;
    RegisterAccess &operator=(const RegisterAccess &) = delete;

    using LinkFunction = std::function<Node *(Role role, const std::string &name)>;
    /** Enters the links; false when one of them leads nowhere. */
    bool resolveRegister(const LinkFunction &link);
    /** The declared mode where the port is the device's, else NA. */
    GenApi::EAccessMode registerMode() const;
    bool areBytesKept() const { return m_isHeld; }
    void forgetRegister();
    void settleRegister(bool keep);

private:
    struct Offset
    {
        Node *node;
        std::int64_t factor; // bytes per index; 0 stands for the length of the register
        Node *factorNode;
    };

    void hold(std::int64_t address, Bytes bytes);
    void release();
    std::vector<RegisterAccess *> overlapping(std::int64_t address, std::size_t size) const;
    bool sharesBits(const RegisterAccess &other, std::int64_t address, std::size_t size) const;

    Node &m_node;
    GenApi::EAccessMode m_declaredMode = GenApi::RO;
    bool m_hasPort = false;
    std::int64_t m_baseAddress = 0;
    std::vector<Node *> m_addressNodes;
    std::vector<Offset> m_indexes;
    std::int64_t m_declaredLength = 0;
    Node *m_lengthNode = nullptr;
    std::optional<std::int64_t> m_address;

    Bytes m_held;
    std::int64_t m_heldAddress = 0;
    bool m_isHeld = false;
    bool m_isWriting = false;
};

} // namespace MoxGenApi

#endif
