// Configuration of the keyboard's input methods.
#pragma once

#include <QUuid>

class ZKbConfig {
public:
    static bool isInputModeSupported(const QUuid &inputMode);
};
