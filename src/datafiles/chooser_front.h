#pragma once

#include <cstdint>

// The claim on the front of a window that acts modal without being so: it remembers who had the front
// when it opened and gives it back when it closes; a higher number in claimant outranks it meanwhile.
class FrontClaim {
public:
    explicit FrontClaim(int32_t number) : m_number(number) {}

    // Opening: keeps the first holder it meets and claims the front.
    void open(int32_t& claimant);
    // Losing the focus while shown: true when the window takes the front back (it then holds the claim),
    // false when a higher number has it.
    bool lostFocus(int32_t& claimant) const;
    // Closing: the claim goes; the number returned gets the front back.
    int32_t close(int32_t& claimant) const;

    int32_t number() const { return m_number; }
    int32_t previousFront() const { return m_previousHolder; }

private:
    int32_t m_number;
    int32_t m_previousHolder = 0;
    bool m_stored = false;
};
