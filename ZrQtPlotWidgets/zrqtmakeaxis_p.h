#ifndef ZRQTMAKEAXIS_P_H
#define ZRQTMAKEAXIS_P_H

//
// This file is not part of the API. It exists for the convenience of the implementation and may change or
// vanish in any version.
//

#include "internal/zrmakeaxis_p.h"

class ZrQtMakeAxisPrivate
{
public:
    ZrMakeAxis engine;
    bool timeMode = false; ///< ranges are times: they do not begin before the epoch
};

#endif // ZRQTMAKEAXIS_P_H
