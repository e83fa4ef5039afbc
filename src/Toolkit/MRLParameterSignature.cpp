#include "Toolkit/MRLParameterSignature.h"

#include "Toolkit/MRLMessageParam.h"
#include "Toolkit/MRLSchemaTypesFactory.h"

#include "HBLCore/HBLFailure.h"

#include <cstring>
#include <memory>

namespace {

using Descriptor = MRLMessageFactory::MRLParamDescriptor;

std::size_t countRows(const Descriptor* list) {
    std::size_t count = 0;
    while (list[count].paramName != nullptr)
        ++count;
    return count;
}

bool matchesPairwise(const Descriptor* expected, const std::vector<MRLMessageParam*>& actual) {
    for (std::size_t i = 0; i < actual.size(); ++i)
        if (!isSameParameter(expected[i], actual[i]))
            return false;
    return true;
}

// Parameters may be left out, but what is given stands in the declared order.
bool isOrderedPart(const Descriptor* expected, const std::vector<MRLMessageParam*>& actual) {
    for (const MRLMessageParam* given : actual) {
        while (expected->paramName != nullptr && !isSameParameter(*expected, given))
            ++expected;
        if (expected->paramName == nullptr)
            return false;
        ++expected;
    }
    return true;
}

} // namespace

bool isSameParameterSignature(const Descriptor* expectedParamList,
                              const std::vector<MRLMessageParam*>& actualParams) {
    HBL_ASSERT(expectedParamList);
    if (countRows(expectedParamList) == actualParams.size())
        return matchesPairwise(expectedParamList, actualParams);
    return isOrderedPart(expectedParamList, actualParams);
}

bool isSameParameter(const Descriptor& expected, const MRLMessageParam* actual) {
    const MRLMessageParam* const param2 = actual;
    HBL_ASSERT(param2);
    const char* const param1Name = expected.paramName;
    const char* const param2Name = param2->getParamName();
    HBL_ASSERT(param1Name);
    HBL_ASSERT(param2Name);
    if (std::strcmp(param1Name, param2Name) != 0)
        return false;

    const MRLSchemaTypeI::ObjectType type = param2->getParamType();
    if (type == expected.paramType)
        return true;
    if (!MRLSchemaTypesFactory::isGeneratedType(type))
        return false;
    if (const auto* value = static_cast<const MRLSchemaTypeI*>(param2->getParamValue()))
        return value->isa(expected.paramType) != 0;

    // Without a value the type alone must tell, and only an object knows its ancestors.
    const std::unique_ptr<MRLSchemaTypeI> sample(MRLSchemaTypesFactory::getInstance().create(type));
    return sample->isa(expected.paramType) != 0;
}
