// Runs one entry point of the library on bytes made by a fuzzer, the way the
// host calls it: the bytes become the input file, and the entry point's other
// arguments come from their first line. Or the recogniser of file formats on
// them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quelcnv::fuzz {

// The entry points that read a file: every provided one but the sample.
std::vector<std::string_view> readingOperations();

// Writes the bytes where the entry point reads them and calls it. For an
// entry point with arguments besides its input and output, the first line
// of the bytes holds them, separated by "|", in the entry point's order: the
// settings line of the host's quelvar.ini for pathAp (none when empty), a
// whole number for selec, the texts of the others. The rest is the input.
// Aborts, so that the fuzzer reports it, when the entry point gives a result
// it is not documented to give, or reports a failure and leaves an output.
void runEntryPoint(std::string_view operation, const std::uint8_t* data, std::size_t size);

// Recognises the bytes as a file with the library's recogniser. Aborts when
// its summary contradicts itself (a kind that is not its format's, one end
// of a station range without the other, a count below zero).
void runRecogniser(const std::uint8_t* data, std::size_t size);

// The name of the recogniser's fuzz target and corpus folder, beside the
// entry points'.
inline constexpr std::string_view recognitionTarget = "recognition";

}  // namespace quelcnv::fuzz
