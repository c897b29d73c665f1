#include "engine/module1.h"

void Module1::setStartValues(QString appPath) {
    *this = Module1();
    strAppPath = appPath.endsWith(QLatin1Char('/')) ? appPath : appPath + QLatin1Char('/');
    strSongName = strAppPath + QStringLiteral("ding.wav");
    blnNeedNextAlarm = true;
    iEveryNext = -1;
    blnTrayEnabled = true;
    blnTickOn = false;
    blnSoundOn = true;
    blnErrMsgPop = true;
    blnNoSecond = false;
    lngWarnSerial = 1000000;
    blnRepeatPlay = false;
    blnWithMessage = false;
}
