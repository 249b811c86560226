// What the product offers: optional features and flex bits.
#pragma once

/**
 * The engine makes these objects itself, so their size never changes: what a platform keeps for one goes into its
 * room, or behind a pointer in it. The engine does not look into the room.
 */
class SETUP_Utility {
public:
    SETUP_Utility();
    ~SETUP_Utility();

    SETUP_Utility(const SETUP_Utility &) = delete;
    SETUP_Utility &operator=(const SETUP_Utility &) = delete;

    bool isFeatureAvailable(unsigned short featureId);
    /** Leaves @p value as it is when the product does not know the bit. */
    bool getFlexBit(unsigned short flexBitId, bool &value);

private:
    [[maybe_unused]] void *m_room[4]; ///< the platform's own, see above
};

static_assert(sizeof(SETUP_Utility) == 4 * sizeof(void *));
