#pragma once

#include <string>

/// Random identifiers.
class NSUUID {
public:
    /// A fresh random UUID in the usual form of 36 upper-case characters.
    [[nodiscard]] static std::string UUIDString();
};
