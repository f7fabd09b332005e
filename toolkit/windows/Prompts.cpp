#include "toolkit/windows/Prompts.h"

#include "toolkit/windows/NativePrompts.h"

namespace toolkit {

namespace {

IPrompts* g_prompts = nullptr;

} // namespace

IPrompts& Prompts() {
    static NativePrompts native;
    return g_prompts != nullptr ? *g_prompts : native;
}

IPrompts* SetPrompts(IPrompts* prompts) {
    IPrompts* before = g_prompts;
    g_prompts = prompts;
    return before;
}

} // namespace toolkit
