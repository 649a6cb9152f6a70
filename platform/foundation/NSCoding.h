#pragma once

#include "platform/foundation/NSObject.h"

#include <string_view>

class NSAny;
class NSCoder;

/// A class as archives know it. One constant for each class; compared by address.
struct NSClass {
    std::string_view name;
    /// Null for NSObject itself.
    const NSClass* superclass = nullptr;
    /// Makes an object from the coder's current object. Nil after `failWithError` when what the coder holds
    /// is no such object. Null for classes that are never archived themselves.
    NSAny (*initWithCoder)(NSCoder& coder) = nullptr;

    [[nodiscard]] bool isSubclassOfClass(const NSClass& other) const;
};

/// What objects in archives can do. A class that derives from this one has a constant NSClass as a static
/// member function `classObject`.
class NSCoding : public NSObject {
public:
    /// The class under whose name the object is archived.
    [[nodiscard]] virtual const NSClass& classForCoder() const = 0;
    virtual void encodeWithCoder(NSCoder& coder) const = 0;
};

/// The classes that archives hold and that the kinds of NSAny stand for here.
extern const NSClass NSObjectClass;
extern const NSClass NSStringClass;
extern const NSClass NSNumberClass;
extern const NSClass NSDataClass;
extern const NSClass NSDateClass;
extern const NSClass NSArrayClass;
extern const NSClass NSDictionaryClass;
extern const NSClass NSURLClass;

/// Their mutable forms, which are read as the plain ones are: values never change.
extern const NSClass NSMutableStringClass;
extern const NSClass NSMutableDataClass;
extern const NSClass NSMutableArrayClass;
extern const NSClass NSMutableDictionaryClass;
