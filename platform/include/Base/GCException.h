// The exceptions of the GenICam interfaces, and the macros that throw them with file and line.
#ifndef GENICAM_GCEXCEPTION_H
#define GENICAM_GCEXCEPTION_H

#include <Base/GCLinkage.h>
#include <Base/GCString.h>

#include <exception>

namespace GenICam_3_0 {

/**
 * Base of everything that a node map throws.
 *
 * `GetDescription()` is the bare reason, for a user; `what()` adds the kind of the exception and its place in the
 * source, for a developer. The texts belong to the exception.
 */
class MOXSDK_EXPORT GenericException : public std::exception
{
public:
    GenericException(const char *description, const char *sourceFileName, unsigned int sourceLine);
    GenericException(const char *description, const char *sourceFileName, unsigned int sourceLine,
                     const char *exceptionType);
    GenericException(const GenericException &) = default;
    GenericException &operator=(const GenericException &) = default;
    ~GenericException() override;

    virtual const char *GetDescription() const noexcept;
    virtual const char *GetSourceFileName() const noexcept;
    virtual unsigned int GetSourceLine() const noexcept;
    const char *what() const noexcept override;

private:
    gcstring m_description;
    gcstring m_sourceFileName;
    unsigned int m_sourceLine;
    gcstring m_what;
};

#define MOX_DECLARE_GENICAM_EXCEPTION(Name)                                                                            \
    class MOXSDK_EXPORT Name : public GenericException                                                                 \
    {                                                                                                                  \
    public:                                                                                                            \
        Name(const char *description, const char *sourceFileName, unsigned int sourceLine);                            \
        Name(const Name &) = default;                                                                                  \
        Name &operator=(const Name &) = default;                                                                       \
        ~Name() override;                                                                                              \
    }

MOX_DECLARE_GENICAM_EXCEPTION(BadAllocException);
MOX_DECLARE_GENICAM_EXCEPTION(InvalidArgumentException);
MOX_DECLARE_GENICAM_EXCEPTION(OutOfRangeException);
MOX_DECLARE_GENICAM_EXCEPTION(PropertyException);
MOX_DECLARE_GENICAM_EXCEPTION(RuntimeException);
MOX_DECLARE_GENICAM_EXCEPTION(LogicalErrorException);
MOX_DECLARE_GENICAM_EXCEPTION(AccessException);
MOX_DECLARE_GENICAM_EXCEPTION(TimeoutException);
MOX_DECLARE_GENICAM_EXCEPTION(DynamicCastException);

#undef MOX_DECLARE_GENICAM_EXCEPTION

/** Builds an exception of type E from a printf-style description; used through the macros below. */
template<class E> class ExceptionReporter
{
public:
    ExceptionReporter(const char *sourceFileName, unsigned int sourceLine)
        : m_sourceFileName(sourceFileName), m_sourceLine(sourceLine)
    { }

    template<typename... Args> E Report(const char *format, Args... args) const
    {
        return E(formatted(format, args...).c_str(), m_sourceFileName, m_sourceLine);
    }

private:
    static gcstring formatted(const char *text) { return gcstring(text); }
    template<typename... Args> static gcstring formatted(const char *format, Args... args);

    const char *m_sourceFileName;
    unsigned int m_sourceLine;
};

/** `snprintf` into a text of the length that it needs. */
MOXSDK_EXPORT gcstring formatDescription(const char *format, ...) __attribute__((format(printf, 1, 2)));

template<class E> template<typename... Args> gcstring ExceptionReporter<E>::formatted(const char *format, Args... args)
{
    return formatDescription(format, args...);
}

} // namespace GenICam_3_0

#define GENERIC_EXCEPTION GenICam_3_0::ExceptionReporter<GenICam_3_0::GenericException>(__FILE__, __LINE__).Report
#define BAD_ALLOC_EXCEPTION GenICam_3_0::ExceptionReporter<GenICam_3_0::BadAllocException>(__FILE__, __LINE__).Report
#define INVALID_ARGUMENT_EXCEPTION                                                                                     \
    GenICam_3_0::ExceptionReporter<GenICam_3_0::InvalidArgumentException>(__FILE__, __LINE__).Report
#define OUT_OF_RANGE_EXCEPTION                                                                                         \
    GenICam_3_0::ExceptionReporter<GenICam_3_0::OutOfRangeException>(__FILE__, __LINE__).Report
#define PROPERTY_EXCEPTION GenICam_3_0::ExceptionReporter<GenICam_3_0::PropertyException>(__FILE__, __LINE__).Report
#define RUNTIME_EXCEPTION GenICam_3_0::ExceptionReporter<GenICam_3_0::RuntimeException>(__FILE__, __LINE__).Report
#define LOGICAL_ERROR_EXCEPTION                                                                                        \
    GenICam_3_0::ExceptionReporter<GenICam_3_0::LogicalErrorException>(__FILE__, __LINE__).Report
#define ACCESS_EXCEPTION GenICam_3_0::ExceptionReporter<GenICam_3_0::AccessException>(__FILE__, __LINE__).Report
#define TIMEOUT_EXCEPTION GenICam_3_0::ExceptionReporter<GenICam_3_0::TimeoutException>(__FILE__, __LINE__).Report
#define DYNAMICCAST_EXCEPTION                                                                                          \
    GenICam_3_0::ExceptionReporter<GenICam_3_0::DynamicCastException>(__FILE__, __LINE__).Report

#endif
