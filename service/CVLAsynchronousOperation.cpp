#include "service/CVLAsynchronousOperation.h"

namespace {

constexpr const char* kOperationExecutingKey = "operationExecuting";
constexpr const char* kOperationFinishedKey = "operationFinished";

} // namespace

void CVLAsynchronousOperation::setOperationExecuting(bool executing)
{
    m_operationExecuting = executing;
    didChangeValueForKey(kOperationExecutingKey);
}

void CVLAsynchronousOperation::setOperationFinished(bool finished)
{
    m_operationFinished = finished;
    didChangeValueForKey(kOperationFinishedKey);
}

std::vector<std::string>
CVLAsynchronousOperation::keyPathsForValuesAffectingValueForKey(std::string_view key) const
{
    if (key == "executing")
        return {kOperationExecutingKey, kOperationFinishedKey};
    if (key == "finished")
        return {kOperationFinishedKey};
    return NSOperation::keyPathsForValuesAffectingValueForKey(key);
}
