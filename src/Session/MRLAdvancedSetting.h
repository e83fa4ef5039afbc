#pragma once

#include "HBLCore/MRLExport.h"

#include <span>
#include <string_view>

/// What an advanced setting holds.
enum class MRLAdvancedSettingKind {
    eFlag,      ///< TRUE, in any case, or anything else for no
    eNumber,    ///< a whole number
    eMeasure,   ///< a number
    eCharacter, ///< TAB, CR, LF, or a character
    eText,      ///< any text
    eChoice,    ///< one of `values`
};

/// An advanced setting that the toolkit knows; MRLConfigSettings holds their values.
struct MRLAdvancedSetting {
    std::string_view name; ///< case does not count
    MRLAdvancedSettingKind kind;
    std::string_view values; ///< what a choice takes, separated by "|"; what else a character takes

    /// All of them, in the order of the getters.
    MRL_EXPORT static std::span<const MRLAdvancedSetting> all();
};
