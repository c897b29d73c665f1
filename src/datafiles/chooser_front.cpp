#include "datafiles/chooser_front.h"

void FrontClaim::open(int32_t& claimant) {
    if (!m_stored) {
        m_previousHolder = claimant;
        m_stored = true;
    }
    claimant = m_number;
}

bool FrontClaim::lostFocus(int32_t& claimant) const {
    if (claimant > m_number)
        return false;
    claimant = m_number;
    return true;
}

int32_t FrontClaim::close(int32_t& claimant) const {
    claimant = 0;
    return m_previousHolder;
}
