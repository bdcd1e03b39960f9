// Enumeration and its entries.
#ifndef MOXGENAPI_ENUMERATIONNODE_H
#define MOXGENAPI_ENUMERATIONNODE_H

#include "node.h"
#include "valuesource.h"

#include <GenApi/Values.h>

namespace MoxGenApi {

class EnumEntryNode : public Node, public virtual GenApi::IEnumEntry
{
public:
    using Node::Node;

    std::int64_t GetValue() override;
    GenApi::gcstring GetSymbolic() const override { return GenApi::gcstring(m_description.symbolic); }
    bool IsSelfClearing() override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIEnumEntry; }

    void resolve() override;
    std::int64_t integer(bool ignoreCache) override;
    const std::string &symbolic() const { return m_description.symbolic; }

protected:
    GenApi::EAccessMode sourceMode() override { return GenApi::RO; }
    std::string printed(bool) override { return m_description.symbolic; }

private:
    std::int64_t m_number = 0;
};

/** Enumeration: the number behind it picks one of the entries. */
class EnumerationNode : public Node, public virtual GenApi::IEnumeration
{
public:
    using Node::Node;

    void GetSymbolics(GenApi::StringList_t &symbolics) override;
    void GetEntries(GenApi::NodeList_t &entries) override;
    void SetIntValue(std::int64_t value, bool verify) override;
    std::int64_t GetIntValue(bool verify, bool ignoreCache) override;
    GenApi::IEnumEntry *GetEntryByName(const GenApi::gcstring &symbolic) override;
    GenApi::IEnumEntry *GetEntry(std::int64_t value) override;
    GenApi::IEnumEntry *GetCurrentEntry(bool verify, bool ignoreCache) override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIEnumeration; }

    void resolve() override;
    void addEntry(EnumEntryNode &entry) { m_entries.push_back(&entry); }
    EnumEntryNode *entryOf(std::int64_t value) const;
    EnumEntryNode *entryNamed(const std::string &symbolic) const;

    std::int64_t integer(bool ignoreCache) override;
    std::string text(bool ignoreCache) override { return printed(ignoreCache); }
    void setInteger(std::int64_t value, bool verify) override;
    void setText(const std::string &text, bool verify) override;
    void forget() override;

protected:
    GenApi::EAccessMode sourceMode() override { return m_source.mode(); }
    bool isValueKept() const override { return m_value.isKept(); }
    std::string printed(bool ignoreCache) override;
    void setPrinted(const std::string &text, bool verify) override;

private:
    EnumEntryNode &checkedEntry(const std::string &symbolic) const;

    ValueSource m_source;
    std::vector<EnumEntryNode *> m_entries;
    Kept<std::int64_t> m_value;
};

/** The number of an entry by its symbolic, for formulas; throws when @p node has no such entry. */
std::int64_t entryValue(Node &node, const std::string &symbolic);

} // namespace MoxGenApi

#endif
