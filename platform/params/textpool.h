// Texts that stay where they are.
#ifndef MOXSDK_TEXTPOOL_H
#define MOXSDK_TEXTPOOL_H

#include <mutex>
#include <set>
#include <string>

namespace MoxSdk {

/**
 * Keeps every text that was ever handed out, each once, so that a caller may go on holding an old one while another
 * thread asks for the new one. It grows with the number of different texts only. Safe from any thread.
 */
class TextPool
{
public:
    /** A copy of the text that lives as long as the pool. */
    const char *intern(std::string text);

private:
    std::mutex m_mutex;
    std::set<std::string> m_texts;
};

} // namespace MoxSdk

#endif
