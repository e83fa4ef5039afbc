#include "Toolkit/MRLSchemaArrayImpl.h"

#include <cstdlib>
#include <stdexcept>

namespace mrl::detail {

void invalidSubscript() {
    throw std::out_of_range("invalid vector<T> subscript");
}

std::size_t elementIndex(const char* name) {
    HBL_ASSERT(name);
    if (name[0] == '0' && name[1] == '\0')
        return 0;
    const long idx = std::strtol(name, nullptr, 10);
    HBL_ASSERT_NAMED(idx != 0, "An invalid name was requested.");
    // A negative number ends beyond every array.
    return static_cast<std::size_t>(idx);
}

MRLSchemaTypeI* copyElementObject(const MRLSchemaTypeI& element, ObjectType elementType,
                                  MRLObjectRegistryI& registry) {
    MRLSchemaTypeI& copy = MRLSchemaTypesFactory::getInstance().createCopy(element, registry);
    MRLSchemaTypeI* const pCastedCopy = copy.isa(elementType) != 0 ? &copy : nullptr;
    HBL_ASSERT(pCastedCopy);
    return pCastedCopy;
}

} // namespace mrl::detail
