#pragma once

#include "platform/foundation/NSOperation.h"

/// Base of operations that go on after they were started. A subclass signals its state by setting the two
/// flags; observers of "executing" and "finished" see both change.
class CVLAsynchronousOperation : public NSOperation {
public:
    [[nodiscard]] bool operationExecuting() const { return m_operationExecuting; }

    void setOperationExecuting(bool executing);

    [[nodiscard]] bool operationFinished() const { return m_operationFinished; }

    void setOperationFinished(bool finished);

    [[nodiscard]] bool isAsynchronous() const override { return true; }

    /// False once the operation is finished, whatever the flag says.
    [[nodiscard]] bool isExecuting() const override { return !isFinished() && m_operationExecuting; }

    [[nodiscard]] bool isFinished() const override { return m_operationFinished; }

protected:
    [[nodiscard]] std::vector<std::string>
    keyPathsForValuesAffectingValueForKey(std::string_view key) const override;

private:
    bool m_operationExecuting = false;
    bool m_operationFinished = false;
};
