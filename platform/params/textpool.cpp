#include "textpool.h"

#include <utility>

namespace MoxSdk {

const char *TextPool::intern(std::string text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_texts.insert(std::move(text)).first->c_str();
}

} // namespace MoxSdk
