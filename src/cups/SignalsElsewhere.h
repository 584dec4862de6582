#pragma once

#include <csignal>

/** While it lives, this thread and those that it starts take no signals. */
class SignalsElsewhere
{
public:
    SignalsElsewhere()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    SignalsElsewhere(const SignalsElsewhere &) = delete;
    SignalsElsewhere &operator=(const SignalsElsewhere &) = delete;
    ~SignalsElsewhere() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before;
};
