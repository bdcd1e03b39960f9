// The out-of-line part of the GenICam exceptions: their vtables and type infos live in this library only.
#include <Base/GCException.h>

#include <cstdarg>
#include <cstdio>
#include <string>

namespace GenICam_3_0 {

gcstring formatDescription(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    return gcstring(std::move(text));
}

GenericException::GenericException(const char *description, const char *sourceFileName, unsigned int sourceLine)
    : GenericException(description, sourceFileName, sourceLine, "GenericException")
{ }

GenericException::GenericException(const char *description, const char *sourceFileName, unsigned int sourceLine,
                                   const char *exceptionType)
    : m_description(description),
      m_sourceFileName(sourceFileName),
      m_sourceLine(sourceLine),
      m_what(formatDescription("%s : %s thrown (file '%s', line %u)", m_description.c_str(), exceptionType,
                               m_sourceFileName.c_str(), sourceLine))
{ }

GenericException::~GenericException() = default;

const char *GenericException::GetDescription() const noexcept
{
    return m_description.c_str();
}

const char *GenericException::GetSourceFileName() const noexcept
{
    return m_sourceFileName.c_str();
}

unsigned int GenericException::GetSourceLine() const noexcept
{
    return m_sourceLine;
}

const char *GenericException::what() const noexcept
{
    return m_what.c_str();
}

#define MOX_DEFINE_GENICAM_EXCEPTION(Name)                                                                             \
    Name::Name(const char *description, const char *sourceFileName, unsigned int sourceLine)                           \
        : GenericException(description, sourceFileName, sourceLine, #Name)                                             \
    { }                                                                                                                \
    Name::~Name() = default

MOX_DEFINE_GENICAM_EXCEPTION(BadAllocException);
MOX_DEFINE_GENICAM_EXCEPTION(InvalidArgumentException);
MOX_DEFINE_GENICAM_EXCEPTION(OutOfRangeException);
MOX_DEFINE_GENICAM_EXCEPTION(PropertyException);
MOX_DEFINE_GENICAM_EXCEPTION(RuntimeException);
MOX_DEFINE_GENICAM_EXCEPTION(LogicalErrorException);
MOX_DEFINE_GENICAM_EXCEPTION(AccessException);
MOX_DEFINE_GENICAM_EXCEPTION(TimeoutException);
MOX_DEFINE_GENICAM_EXCEPTION(DynamicCastException);

} // namespace GenICam_3_0
