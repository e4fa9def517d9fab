#include "CBaseObject.h"

void CBaseObject::forget()
{
    if (--nbReference == 0) delete this;
}
