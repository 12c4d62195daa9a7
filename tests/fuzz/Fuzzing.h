#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/** What libFuzzer, or the replay of the corpus, calls with each input. */
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize);

namespace HmiFuzz {

/** Ends the process where a promise is broken; libFuzzer then keeps the input. */
inline void require(bool aKept, const char* aPromise)
{
    if (aKept)
        return;
    std::fprintf(stderr, "Broken promise: %s\n", aPromise);
    std::abort();
}

/**
 * Reads an input from its begin: first, counted by one byte, bytes that choose what happens, which read as 0
 * when they are used up; then what is fed to the code.
 */
class Input
{
public:
    Input(const std::uint8_t* aData, std::size_t aSize) : mAt(aData), mEnd(aData + aSize)
    {
        if (aSize == 0)
            return;
        mChoice = mAt + 1;
        const std::size_t count = *mAt < aSize ? *mAt : aSize - 1;
        mAt = mChoicesEnd = mChoice + count;
    }

    bool hasChoice() const { return mChoice != mChoicesEnd; }
    int choose() { return hasChoice() ? *mChoice++ : 0; }

    const char* getRest() const { return reinterpret_cast<const char*>(mAt); }
    std::size_t getRestSize() const { return static_cast<std::size_t>(mEnd - mAt); }
    void skip(std::size_t aCount) { mAt += aCount; }

private:
    const std::uint8_t* mAt;
    const std::uint8_t* const mEnd;
    const std::uint8_t* mChoice = nullptr;
    const std::uint8_t* mChoicesEnd = nullptr;
};

} // namespace HmiFuzz
