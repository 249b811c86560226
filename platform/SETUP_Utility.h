// What the product offers: optional features and flex bits.
#pragma once

class SETUP_Utility {
public:
    SETUP_Utility();
    ~SETUP_Utility();

    SETUP_Utility(const SETUP_Utility &) = delete;
    SETUP_Utility &operator=(const SETUP_Utility &) = delete;

    bool isFeatureAvailable(unsigned short featureId);
    /** Leaves @p value as it is when the product does not know the bit. */
    bool getFlexBit(unsigned short flexBitId, bool &value);
};
