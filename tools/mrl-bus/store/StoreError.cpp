#include "store/StoreError.h"

namespace mrl::bus {

std::string_view codeText(StoreErrorCode code) noexcept {
    switch (code) {
    case StoreErrorCode::noRead: return "cmNoRead";
    case StoreErrorCode::noWrite: return "cmNoWrite";
    case StoreErrorCode::noPermission: return "cmNoPermission";
    case StoreErrorCode::propertyNoPermission: return "cmPropertyNoPermission";
    case StoreErrorCode::notFound: return "cmNotFound";
    case StoreErrorCode::ambiguousPath: return "cmAmbiguousPath";
    case StoreErrorCode::nameInUse: return "cmNameInUse";
    case StoreErrorCode::badName: return "cmBadName";
    case StoreErrorCode::hasChildren: return "cmHasChildren";
    case StoreErrorCode::referenced: return "cmReferenced";
    case StoreErrorCode::badSearchPath: return "cmBadSearchPath";
    case StoreErrorCode::badProperty: return "cmBadProperty";
    case StoreErrorCode::badOption: return "cmBadOption";
    case StoreErrorCode::badClass: return "cmBadClass";
    case StoreErrorCode::tooMuch: return "cmTooMuch";
    }
    return "cmUnknown";
}

} // namespace mrl::bus
