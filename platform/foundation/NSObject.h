#pragma once

/// The root of the classes that are handled by identity: exported objects, operations. Not copied.
class NSObject {
public:
    NSObject() = default;
    NSObject(const NSObject&) = delete;
    NSObject& operator=(const NSObject&) = delete;
    virtual ~NSObject() = default;
};
