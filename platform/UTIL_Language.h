// The language of the phone's screens.
#pragma once

class UTIL_Language {
public:
    static int getSystemLanguageId();
};
