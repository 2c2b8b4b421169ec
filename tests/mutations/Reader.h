#pragma once

#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/mutations/Mutation.h"

namespace nux {

/// What the sample installation holds: the seeds of all mutations.
struct Samples {
    /// @param folder  Windows path of the installation. Throws std::runtime_error if nothing is found there.
    explicit Samples(const std::string& folder);

    std::vector<std::string> catalogues;  ///< contents of files
    std::vector<std::string> messages;
    std::vector<std::string> dimensions;
    std::vector<std::string> ids;    ///< of components
    std::vector<std::string> texts;  ///< IDs of messages
};

/// One way into the component for what comes from outside. It keeps nothing from one input to the next, so
/// that each can be read again alone.
class Reader {
public:
    virtual ~Reader() = default;

    /// Makes one input of the random numbers and has it read. Throws WrongResult if the component answers
    /// what it must not.
    /// @return whether the input was taken, rather than refused as a whole
    virtual bool Read(Random& random) = 0;
};

class WrongResult : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

inline void Require(bool holds, const char* what) {
    if (!holds)
        throw WrongResult(what);
}

struct ReaderKind {
    const char* name;
    const char* reads;         ///< what, in words
    unsigned share;            ///< of 10,000 inputs over all readers
    std::size_t keptByDesign;  ///< bytes that the component keeps of each input, as it is meant to
    std::unique_ptr<Reader> (*make)(const Samples&);
};

// By the file that implements them.
std::span<const ReaderKind> DocumentReaders() noexcept;
std::span<const ReaderKind> DimensionReaders() noexcept;
std::span<const ReaderKind> SettingsReaders() noexcept;
std::span<const ReaderKind> ScriptReaders() noexcept;

template <class Kind>
std::unique_ptr<Reader> Make(const Samples& samples) {
    return std::make_unique<Kind>(samples);
}

}  // namespace nux
