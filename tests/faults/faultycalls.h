// A camera SDK that fails at one call: what its wrappers around the objects of the open SDK have in common.
#ifndef MOX_FAULTYCALLS_H
#define MOX_FAULTYCALLS_H

#include <GenApi/GenApi.h>
#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>

#include <QString>

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace MoxTest {

/** What goes wrong. A call counts for a failure only if it can show it. */
enum Failure : unsigned {
    ErrorCode = 1, ///< the call's error code, and a neutral value
    NullObject = 2,
    Exception = 4, ///< std::runtime_error
    NodeError = 8, ///< one of GenICam's exceptions, which the library treats alike
    CameraLost = 16, ///< the plug is pulled while the call is made
    PortOnce = 32, ///< of port accesses
    PortForever = 64, ///< as PortOnce, and every access after it
    PortFailures = PortOnce | PortForever
};

/** The one failure to come, counted over all threads, and what the calls did. */
class FaultPlan
{
public:
    static FaultPlan &instance()
    {
        static FaultPlan plan;
        return plan;
    }

    /** Fails the @p nth call from now, or only counts for 0. Cameras and ports that fail are those of @p camera. */
    void arm(Failure kind, unsigned nth, const std::string &camera)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_kind = kind;
        m_nth = nth;
        m_count = 0;
        m_camera = camera;
        m_struck.clear();
        places.clear();
        m_firstAccess = MoxSim::accessCount(camera);
        if (kind & PortFailures)
            MoxSim::failAccess(camera, nth);
    }
    /** Gives what was counted since arm(). */
    unsigned disarm()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_kind & PortFailures) {
            MoxSim::failAccess(m_camera, 0);
            m_count = unsigned(MoxSim::accessCount(m_camera) - m_firstAccess);
        }
        m_kind = {};
        return m_count;
    }
    /** Asked by every call: how it is to fail by its result, or 0. Exceptions are thrown here. */
    template<class Subject> unsigned failure(const char *function, unsigned possible, Subject subject)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        // The port has failed by itself.
        if (m_kind & PortFailures && m_nth > 0 && m_struck.empty()
            && MoxSim::accessCount(m_camera) >= m_firstAccess + m_nth) {
            m_struck = std::string("before ") + function + ' ' + subject();
            if (m_kind == PortForever)
                MoxSim::failAccess(m_camera, 1, true);
        }
        if (!(m_kind & possible))
            return 0;
        if (m_nth == 0)
            places.push_back({function, step, subject()});
        if (++m_count != m_nth)
            return 0;
        m_struck = std::string(function) + ' ' + subject();
        const Failure kind = m_kind;
        lock.unlock();
        if (kind == Exception)
            throw std::runtime_error("the call is to fail");
        if (kind == NodeError)
            throw RUNTIME_EXCEPTION("the call is to fail");
        if (kind != CameraLost)
            return kind;
        MoxSim::setPlugged(m_camera, false);
        return 0;
    }
    /** The call that has failed; empty if none has. */
    QString struckCall() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return QString::fromStdString(m_struck);
    }
    /** What the library uses of the SDK; empty if nothing. */
    QString leftOver() const
    {
        const std::pair<const char *, int> counts[] = {{"systems", systems},
                                                       {"lists", lists},
                                                       {"devices", devices},
                                                       {"sinks", sinks},
                                                       {"callbacks", nodeCallbacks}};
        QString text;
        for (const auto &[name, count] : counts) {
            if (count != 0)
                text += QStringLiteral(" %1 %2").arg(count).arg(QLatin1String(name));
        }
        return text;
    }

    /** Calls that are alike: by function and step of the scenario, and for a fine sweep by the object's name. */
    struct Place
    {
        const char *function;
        int step;
        std::string subject;
        bool operator<(const Place &other) const
        {
            return std::tie(function, step, subject) < std::tie(other.function, other.step, other.subject);
        }
    };
    std::vector<Place> places; // of the calls counted
    std::atomic<int> step{0};
    std::atomic<int> acknowledgements{0}; // delivered to the library since the process began
    std::atomic<int> systems{0}, lists{0}, devices{0}, sinks{0}, nodeCallbacks{0};

private:
    mutable std::mutex m_mutex;
    Failure m_kind{};
    unsigned m_nth = 0, m_count = 0;
    std::uint64_t m_firstAccess = 0;
    std::string m_camera, m_struck;
};

/** An object of the SDK as the library sees it. */
class Wrapped
{
public:
    virtual ~Wrapped() = default;
    virtual std::string subject() const { return {}; }

    template<class Result, class Call>
    Result pass(const char *function, unsigned possible, MoxCamErr *err, Call call) const
    {
        const unsigned failure = FaultPlan::instance().failure(function, possible, [this] { return subject(); });
        if (!failure)
            return call();
        if (err)
            *err = failure == ErrorCode ? MoxCamError::GenTLIo : MoxCamError::Success;
        return Result();
    }
};

/** The wrappers of one owner's objects, one for each, so that their addresses tell them apart as the real ones do. */
class Wrappers
{
public:
    template<class Wrapper, class Real> Wrapper *of(Real *real)
    {
        if (!real)
            return nullptr;
        const std::lock_guard<std::mutex> lock(m_mutex);
        std::unique_ptr<Wrapped> &made = m_made[dynamic_cast<void *>(real)];
        if (!made)
            made = std::make_unique<Wrapper>(*this, real);
        return static_cast<Wrapper *>(made.get());
    }
    void clear() { m_made.clear(); }

private:
    std::mutex m_mutex;
    std::map<const void *, std::unique_ptr<Wrapped>> m_made;
};

/** A wrapper among those of an owner. */
template<class Real> struct Passing : public Real, public Wrapped
{
    Passing(Wrappers &itsWrappers, Real *itsReal) : wrappers(itsWrappers), real(itsReal) { }

    Wrappers &wrappers;
    Real *const real;
};

GenApi::INodeMap *wrap(Wrappers &wrappers, GenApi::INodeMap *nodeMap);
/** As MoxCam_GetSystem(), which the library calls, but for failures. */
MoxCam::System *wrappedSystem();
/** To be called when the system is released: forgets interfaces and device infos. */
void forgetWrapped();

#define MOX_PASS(Result, Possible, Err, Target, Name, Parameters, Arguments)                                           \
    Result Name Parameters override                                                                                    \
    {                                                                                                                  \
        return this->template pass<Result>(__PRETTY_FUNCTION__, Possible, Err,                                         \
                                           [&]() -> Result { return Target->Name Arguments; });                        \
    }
#define MOX_PASS_OBJECT(Result, Possible, Err, Target, Name, Parameters, Arguments)                                    \
    Result *Name Parameters override                                                                                   \
    {                                                                                                                  \
        return this->template pass<Result *>(__PRETTY_FUNCTION__, Possible, Err,                                       \
                                             [&]() -> Result * { return wrap(wrappers, Target->Name Arguments); });    \
    }

} // namespace MoxTest

#endif
