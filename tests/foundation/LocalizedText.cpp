#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Unicode.h"

#include <cstdio>

/// Shows what the running program's bundle says for a key: a program that tests start in various
/// environments.
int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2)
        return 2;
    const auto text = NSBundle::mainBundle().localizedStringForKey(UTF16FromUTF8(arguments[1]));
    return std::puts(UTF8FromUTF16(text).c_str()) < 0 ? 1 : 0;
}
