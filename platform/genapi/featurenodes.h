// Features that are neither number nor enumeration: boolean, command, text, category, port.
#ifndef MOXGENAPI_FEATURENODES_H
#define MOXGENAPI_FEATURENODES_H

#include "node.h"
#include "valuesource.h"

#include <GenApi/IPort.h>
#include <GenApi/Values.h>

namespace MoxGenApi {

/** Boolean: true while the number behind it is `OnValue`. */
class BooleanNode : public Node, public virtual GenApi::IBoolean
{
public:
    BooleanNode(NodeMap &map, const NodeDescription &description, std::size_t position);

    void SetValue(bool value, bool verify) override;
    bool GetValue(bool verify, bool ignoreCache) const override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIBoolean; }

    void resolve() override;
    std::int64_t integer(bool ignoreCache) override;
    void setInteger(std::int64_t value, bool verify) override;
    std::int64_t integerMin() override { return 0; }
    std::int64_t integerMax() override { return 1; }
    void forget() override;

protected:
    GenApi::EAccessMode sourceMode() override { return m_source.mode(); }
    bool isValueKept() const override { return m_value.isKept(); }
    std::string printed(bool ignoreCache) override;
    void setPrinted(const std::string &text, bool verify) override;

private:
    const std::int64_t m_onValue;
    const std::int64_t m_offValue;
    ValueSource m_source;
    Kept<bool> m_value;
};

/** Command: writes `CommandValue`; done when the number behind it has gone back. */
class CommandNode : public Node, public virtual GenApi::ICommand
{
public:
    using Node::Node;

    void Execute(bool verify) override;
    bool IsDone(bool verify) override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfICommand; }

    void resolve() override;
    std::int64_t integer(bool ignoreCache) override;
    void setInteger(std::int64_t value, bool verify) override;

protected:
    GenApi::EAccessMode sourceMode() override { return m_source.mode(); }
    // A command is for executing only, unless the description says otherwise.
    GenApi::EAccessMode defaultImposedMode() const override { return GenApi::WO; }
    std::string printed(bool ignoreCache) override;
    void setPrinted(const std::string &text, bool verify) override;

private:
    std::int64_t commandValue();
    bool isDone();

    ValueSource m_source;
    Node *m_commandValue = nullptr;
    Kept<bool> m_done; // for the evaluation under way only
};

/** What the text kinds share: verification and kept texts. */
class StringNode : public Node, public virtual GenApi::IString
{
public:
    using Node::Node;

    void SetValue(const GenApi::gcstring &value, bool verify) override;
    GenApi::gcstring GetValue(bool verify, bool ignoreCache) override;
    std::int64_t GetMaxLength() override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIString; }

    std::string text(bool ignoreCache) override;
    void setText(const std::string &text, bool verify) override;
    void forget() override;

protected:
    virtual std::string readText(bool ignoreCache) = 0;
    virtual void writeText(const std::string &text, bool verify) = 0;

    bool isValueKept() const override { return m_value.isKept(); }
    std::string printed(bool ignoreCache) override { return text(ignoreCache); }
    void setPrinted(const std::string &text, bool verify) override;

private:
    Kept<std::string> m_value;
};

/** String: a text of its own or that of another node. */
class StringFeature : public StringNode
{
public:
    using StringNode::StringNode;

    void resolve() override;
    std::int64_t textMax() override;

protected:
    GenApi::EAccessMode sourceMode() override { return m_source.mode(); }
    std::string readText(bool ignoreCache) override { return m_source.text(ignoreCache); }
    void writeText(const std::string &text, bool verify) override { m_source.setText(text, verify); }

private:
    ValueSource m_source;
};

/** Category: features in the description's order. */
class CategoryNode : public Node, public virtual GenApi::ICategory
{
public:
    using Node::Node;

    void GetFeatures(GenApi::FeatureList_t &features) const override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfICategory; }

    void resolve() override;
    const std::vector<Node *> &features() const { return m_features; }
    /** Leaves out a category that contains this one, so that whoever walks down the tree comes to an end. */
    void leaveOut(const Node *ancestor);

protected:
    GenApi::EAccessMode defaultImposedMode() const override { return GenApi::RO; }
    std::string printed(bool) override { return m_description.name; }

private:
    std::vector<Node *> m_features;
};

/** Port: the device's register space, for whoever wants to read it without a node. */
class PortNode : public Node, public virtual GenApi::IPort
{
public:
    using Node::Node;

    void Read(void *buffer, std::int64_t address, std::int64_t length) override;
    void Write(const void *buffer, std::int64_t address, std::int64_t length) override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIPort; }

protected:
    GenApi::EAccessMode sourceMode() override { return m_description.isDevicePort() ? GenApi::RW : GenApi::NA; }
};

} // namespace MoxGenApi

#endif
