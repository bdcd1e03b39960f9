// The text type of the GenICam interfaces.
#ifndef GENICAM_GCSTRING_H
#define GENICAM_GCSTRING_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace GenICam_3_0 {

/**
 * A narrow, zero-terminated text, UTF-8 by convention.
 *
 * It owns its characters and copies them; `c_str()` stays valid until the next change of the object.
 * Texts made from a null pointer are empty.
 */
class gcstring
{
public:
    gcstring() = default;
    gcstring(const char *text) : m_text(text ? text : "") { }
    gcstring(const char *text, std::size_t size) : m_text(text ? std::string(text, size) : std::string()) { }
    explicit gcstring(std::string text) : m_text(std::move(text)) { }

    const char *c_str() const noexcept { return m_text.c_str(); }
    operator const char *() const noexcept { return m_text.c_str(); }
    std::size_t size() const noexcept { return m_text.size(); }
    std::size_t length() const noexcept { return m_text.size(); }
    bool empty() const noexcept { return m_text.empty(); }

    gcstring &operator=(const char *text)
    {
        m_text = text ? text : "";
        return *this;
    }
    gcstring &operator+=(const gcstring &other)
    {
        m_text += other.m_text;
        return *this;
    }
    gcstring &operator+=(const char *text)
    {
        m_text += text ? text : "";
        return *this;
    }

    friend bool operator==(const gcstring &a, const gcstring &b) noexcept { return a.m_text == b.m_text; }
    friend bool operator!=(const gcstring &a, const gcstring &b) noexcept { return a.m_text != b.m_text; }
    friend bool operator<(const gcstring &a, const gcstring &b) noexcept { return a.m_text < b.m_text; }
    friend bool operator==(const gcstring &a, const char *b) { return a == gcstring(b); }
    friend bool operator==(const char *a, const gcstring &b) { return gcstring(a) == b; }
    friend bool operator!=(const gcstring &a, const char *b) { return !(a == b); }
    friend bool operator!=(const char *a, const gcstring &b) { return !(a == b); }
    friend gcstring operator+(gcstring a, const gcstring &b)
    {
        a += b;
        return a;
    }

private:
    std::string m_text;
};

using gcstring_vector = std::vector<gcstring>;

} // namespace GenICam_3_0

namespace GenICam = GenICam_3_0;

#endif
