#pragma once

#include <cstdio>
#include <cstdlib>

/** Ends the program with the text, unless true. */
inline void require(bool aFulfilled, const char* aWhat)
{
    if (aFulfilled)
        return;
    std::fprintf(stderr, "Not possible: %s\n", aWhat);
    std::exit(1);
}
