// The lock of a node map.
#ifndef GENAPI_SYNCH_H
#define GENAPI_SYNCH_H

#include <mutex>

namespace GenApi_3_0 {

/** A recursive lock: the thread that holds it may take it again, as a callback does that reads another node. */
class CLock
{
public:
    bool TryLock() { return m_mutex.try_lock(); }
    void Lock() { m_mutex.lock(); }
    void Unlock() { m_mutex.unlock(); }

private:
    std::recursive_mutex m_mutex;
};

/** Holds a lock for the length of a block. */
class AutoLock
{
public:
    explicit AutoLock(CLock &lock) : m_lock(lock) { m_lock.Lock(); }
    ~AutoLock() { m_lock.Unlock(); }
    AutoLock(const AutoLock &) = delete;
    AutoLock &operator=(const AutoLock &) = delete;

private:
    CLock &m_lock;
};

} // namespace GenApi_3_0

#endif
