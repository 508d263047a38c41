#include "editor/fontwarmup.h"

#include <fontconfig/fontconfig.h>

#include <future>

namespace {

// Its destructor waits too, so a program that ends early never leaves it running.
std::future<void> warmUp;

} // namespace

void startFontWarmUp()
{
    if (!warmUp.valid())
        warmUp = std::async(std::launch::async, [] { FcInit(); });
}

void finishFontWarmUp()
{
    // Waiting beats reading the configuration a second time, which is what Qt would do now.
    if (warmUp.valid())
        warmUp.wait();
}
