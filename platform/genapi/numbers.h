// Numbers as descriptions and users write them, whatever the locale of the process.
#ifndef MOXGENAPI_NUMBERS_H
#define MOXGENAPI_NUMBERS_H

#include <GenApi/Types.h>

#include <cstdint>
#include <optional>
#include <string>

namespace MoxGenApi {

/** Decimal or "0x" hexadecimal, with a sign, blanks around it; hexadecimal may fill all 64 bits. */
std::optional<std::int64_t> parseInteger(const std::string &text);
std::optional<double> parseReal(const std::string &text);

/** The shortest text that reads back as the same number. */
std::string formatReal(double value);

/** An integer in the form its representation asks for: decimal, 0x hexadecimal, dotted IPv4, MAC with colons. */
std::string formatInteger(std::int64_t value, GenApi::ERepresentation representation);
/** The reverse; plain numbers are taken for every representation. */
std::optional<std::int64_t> parseInteger(const std::string &text, GenApi::ERepresentation representation);

/** The representation of that name; undefined for any other text. */
GenApi::ERepresentation representationFromText(const std::string &text);

/** Toward the nearest integer; what does not fit ends at the limit, and a NaN at 0. */
std::int64_t toInteger(double value);

/** Without the blanks at both ends. */
std::string trimmed(const std::string &text);

} // namespace MoxGenApi

#endif
