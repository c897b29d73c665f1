#include "datafiles/chooser_front.h"

void FrontClaim::open(int32_t& lngTopWho) {
    if (!m_stored) {
        m_prevTop = lngTopWho;
        m_stored = true;
    }
    lngTopWho = m_number;
}

bool FrontClaim::lostFocus(int32_t& lngTopWho) const {
    if (lngTopWho > m_number)
        return false;
    lngTopWho = m_number;
    return true;
}

int32_t FrontClaim::close(int32_t& lngTopWho) const {
    lngTopWho = 0;
    return m_prevTop;
}
