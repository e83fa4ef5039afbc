#pragma once

#include "HBLCore/MRLExport.h"

#include <span>
#include <string_view>

/// What a property is meant to hold.
enum class HBLConfigurationKind {
    eText,       ///< any text
    eFlag,       ///< "true" or "false"
    eNumber,     ///< a whole number
    eUri,        ///< an http or https address
    eUriList,    ///< a tree of qzn:item, each an address
    eParameters, ///< a tree of qzn:parameter, each with a qzn:value
    eSettings,   ///< a tree of qzn:setting, each a text
};

/// A property that the toolkit knows.
struct HBLConfigurationName {
    std::string_view name;
    HBLConfigurationKind kind;
    std::string_view defaultValue; ///< what getProperty() gives when it is not configured; mostly empty
    std::string_view effect;       ///< for people, one line
};

namespace HBLConfigurationNames {

/// The namespace of configuration documents; their prefix for it is "qzn".
inline constexpr const char* s_namespace = "http://developer.vantor.example/schemas/qzconfig/1/";

/// All properties that the toolkit knows. A host may have others.
MRL_EXPORT std::span<const HBLConfigurationName> all();

/// Null for an unknown name. Case counts.
MRL_EXPORT const HBLConfigurationName* find(std::string_view name);

/// "true or false", for messages.
MRL_EXPORT std::string_view describe(HBLConfigurationKind kind);

} // namespace HBLConfigurationNames
