#pragma once

#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

/// While the object lives, the process is not root, for whom permissions mean nothing.
class OrdinaryUser {
public:
    OrdinaryUser()
    {
        if (m_user == 0 && ::seteuid(kNobody) != 0)
            throw std::runtime_error("cannot become another user");
    }

    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    ~OrdinaryUser()
    {
        if (::seteuid(m_user) != 0)
            std::abort(); // It was that one before.
    }

private:
    static constexpr uid_t kNobody = 65534;

    uid_t m_user = ::geteuid();
};
