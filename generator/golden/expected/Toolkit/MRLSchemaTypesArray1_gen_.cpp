// Generated from the catalogue: the arrays, each an instance of the shared template.
#include "Toolkit/MRLSchemaArrayImpl.h"
#include "Toolkit/MRLDateTimeArray.h"
#include "Toolkit/MRLFaultDetailArray.h"
#include "Toolkit/MRLFaultDetailMessageArray.h"
#include "Toolkit/MRLIntArray.h"
#include "Toolkit/MRLLabelArray.h"
#include "Toolkit/MRLMessageArray.h"
#include "Toolkit/MRLPartArray.h"
#include "Toolkit/MRLShapeEnumArray.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLThingArray.h"
#include "Toolkit/MRLFaultDetail.h"
#include "Toolkit/MRLFaultDetailMessage.h"
#include "Toolkit/MRLLabel.h"
#include "Toolkit/MRLMessage.h"
#include "Toolkit/MRLPart.h"
#include "Toolkit/MRLShapeEnum.h"
#include "Toolkit/MRLThing.h"

MRLDateTimeArray::MRLDateTimeArray() = default;
MRLDateTimeArray::MRLDateTimeArray(const MRLDateTimeArray& other, MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLDateTimeArray::~MRLDateTimeArray() = default;
template class MRLSchemaArray<MRLDateTimeArray, const char*>;

MRLFaultDetailArray::MRLFaultDetailArray() = default;
MRLFaultDetailArray::MRLFaultDetailArray(const MRLFaultDetailArray& other, MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLFaultDetailArray::~MRLFaultDetailArray() = default;
template class MRLSchemaArray<MRLFaultDetailArray, MRLFaultDetail>;

MRLFaultDetailMessageArray::MRLFaultDetailMessageArray() = default;
MRLFaultDetailMessageArray::MRLFaultDetailMessageArray(const MRLFaultDetailMessageArray& other,
                                                       MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLFaultDetailMessageArray::~MRLFaultDetailMessageArray() = default;
template class MRLSchemaArray<MRLFaultDetailMessageArray, MRLFaultDetailMessage>;

MRLIntArray::MRLIntArray() = default;
MRLIntArray::MRLIntArray(const MRLIntArray& other, MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLIntArray::~MRLIntArray() = default;
template class MRLSchemaArray<MRLIntArray, int>;

MRLLabelArray::MRLLabelArray() = default;
MRLLabelArray::MRLLabelArray(const MRLLabelArray& other, MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLLabelArray::~MRLLabelArray() = default;
template class MRLSchemaArray<MRLLabelArray, MRLLabel>;

MRLMessageArray::MRLMessageArray() = default;
MRLMessageArray::MRLMessageArray(const MRLMessageArray& other, MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLMessageArray::~MRLMessageArray() = default;
template class MRLSchemaArray<MRLMessageArray, MRLMessage>;

MRLPartArray::MRLPartArray() = default;
MRLPartArray::MRLPartArray(const MRLPartArray& other, MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLPartArray::~MRLPartArray() = default;
template class MRLSchemaArray<MRLPartArray, MRLPart>;

MRLShapeEnumArray::MRLShapeEnumArray() = default;
MRLShapeEnumArray::MRLShapeEnumArray(const MRLShapeEnumArray& other, MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLShapeEnumArray::~MRLShapeEnumArray() = default;
template class MRLSchemaArray<MRLShapeEnumArray, MRLShapeEnum>;

MRLStringArray::MRLStringArray() = default;
MRLStringArray::MRLStringArray(const MRLStringArray& other, MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLStringArray::~MRLStringArray() = default;
template class MRLSchemaArray<MRLStringArray, const char*>;

MRLThingArray::MRLThingArray() = default;
MRLThingArray::MRLThingArray(const MRLThingArray& other, MRLObjectRegistryI& registry)
    : MRLSchemaArray(other, registry) {}
MRLThingArray::~MRLThingArray() = default;
template class MRLSchemaArray<MRLThingArray, MRLThing>;
