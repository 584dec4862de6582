#pragma once

#include <csignal>

/** Sets what a signal does (SIG_IGN, SIG_DFL or a handler) while it lives. */
class SignalDisposition
{
public:
    SignalDisposition(int signal, void (*handler)(int))
        : m_signal(signal)
    {
        struct sigaction action = {};
        action.sa_handler = handler;
        sigemptyset(&action.sa_mask);
        sigaction(m_signal, &action, &m_before);
    }
    SignalDisposition(const SignalDisposition &) = delete;
    SignalDisposition &operator=(const SignalDisposition &) = delete;
    ~SignalDisposition() { sigaction(m_signal, &m_before, nullptr); }

private:
    int m_signal;
    struct sigaction m_before;
};
