// Generated from the catalogue: how to make and copy each concrete type, and how to read its members.
#include "Toolkit/MRLSchemaTypeRows.h"

#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORException.h"
#include "Toolkit/MRLBareGadget.h"
#include "Toolkit/MRLBooleanProp.h"
#include "Toolkit/MRLBox.h"
#include "Toolkit/MRLDateTimeArray.h"
#include "Toolkit/MRLDecimalProp.h"
#include "Toolkit/MRLFaultDetail.h"
#include "Toolkit/MRLFaultDetailArray.h"
#include "Toolkit/MRLFaultDetailMessage.h"
#include "Toolkit/MRLFaultDetailMessageArray.h"
#include "Toolkit/MRLGadget.h"
#include "Toolkit/MRLIntArray.h"
#include "Toolkit/MRLLabel.h"
#include "Toolkit/MRLLabelArray.h"
#include "Toolkit/MRLMarker.h"
#include "Toolkit/MRLMessage.h"
#include "Toolkit/MRLMessageArray.h"
#include "Toolkit/MRLPart.h"
#include "Toolkit/MRLPartArray.h"
#include "Toolkit/MRLPartArrayProp.h"
#include "Toolkit/MRLPromptInfo.h"
#include "Toolkit/MRLRefProp.h"
#include "Toolkit/MRLSchemaInfo.h"
#include "Toolkit/MRLShapeEnum.h"
#include "Toolkit/MRLShapeEnumArray.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLSwap.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLThingArray.h"
#include "Toolkit/MRLThingProp.h"

namespace mrl::detail {

template <>
void** memberValues<MRLZOR>(MRLZOR&, void**);
template bool readMembers<MRLZOR>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLZOR>();
template MRLSchemaTypeI*
copySchemaType<MRLZOR>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLZORException>(MRLZORException&, void**);
template bool readMembers<MRLZORException>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLZORException>();
template MRLSchemaTypeI*
copySchemaType<MRLZORException>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLBareGadget>(MRLBareGadget&, void**);
template bool readMembers<MRLBareGadget>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLBareGadget>();
template MRLSchemaTypeI*
copySchemaType<MRLBareGadget>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLBooleanProp>(MRLBooleanProp&, void**);
template bool readMembers<MRLBooleanProp>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLBooleanProp>();
template MRLSchemaTypeI*
copySchemaType<MRLBooleanProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLBox>(MRLBox&, void**);
template bool readMembers<MRLBox>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLBox>();
template MRLSchemaTypeI*
copySchemaType<MRLBox>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLDateTimeArray>();
template MRLSchemaTypeI*
copySchemaType<MRLDateTimeArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLDecimalProp>(MRLDecimalProp&, void**);
template bool readMembers<MRLDecimalProp>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLDecimalProp>();
template MRLSchemaTypeI*
copySchemaType<MRLDecimalProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLFaultDetail>(MRLFaultDetail&, void**);
template bool readMembers<MRLFaultDetail>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLFaultDetail>();
template MRLSchemaTypeI*
copySchemaType<MRLFaultDetail>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLFaultDetailArray>();
template MRLSchemaTypeI*
copySchemaType<MRLFaultDetailArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLFaultDetailMessage>(MRLFaultDetailMessage&, void**);
template bool readMembers<MRLFaultDetailMessage>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLFaultDetailMessage>();
template MRLSchemaTypeI*
copySchemaType<MRLFaultDetailMessage>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLFaultDetailMessageArray>();
template MRLSchemaTypeI*
copySchemaType<MRLFaultDetailMessageArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLGadget>(MRLGadget&, void**);
template bool readMembers<MRLGadget>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLGadget>();
template MRLSchemaTypeI*
copySchemaType<MRLGadget>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLIntArray>();
template MRLSchemaTypeI*
copySchemaType<MRLIntArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLLabel>(MRLLabel&, void**);
template bool readMembers<MRLLabel>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLLabel>();
template MRLSchemaTypeI*
copySchemaType<MRLLabel>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLLabelArray>();
template MRLSchemaTypeI*
copySchemaType<MRLLabelArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLMarker>(MRLMarker&, void**);
template bool readMembers<MRLMarker>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLMarker>();
template MRLSchemaTypeI*
copySchemaType<MRLMarker>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLMessage>(MRLMessage&, void**);
template bool readMembers<MRLMessage>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLMessage>();
template MRLSchemaTypeI*
copySchemaType<MRLMessage>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLMessageArray>();
template MRLSchemaTypeI*
copySchemaType<MRLMessageArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLPart>(MRLPart&, void**);
template bool readMembers<MRLPart>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLPart>();
template MRLSchemaTypeI*
copySchemaType<MRLPart>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLPartArray>();
template MRLSchemaTypeI*
copySchemaType<MRLPartArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLPartArrayProp>(MRLPartArrayProp&, void**);
template bool readMembers<MRLPartArrayProp>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLPartArrayProp>();
template MRLSchemaTypeI*
copySchemaType<MRLPartArrayProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLPromptInfo>(MRLPromptInfo&, void**);
template bool readMembers<MRLPromptInfo>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLPromptInfo>();
template MRLSchemaTypeI*
copySchemaType<MRLPromptInfo>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLRefProp>(MRLRefProp&, void**);
template bool readMembers<MRLRefProp>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLRefProp>();
template MRLSchemaTypeI*
copySchemaType<MRLRefProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLSchemaInfo>(MRLSchemaInfo&, void**);
template bool readMembers<MRLSchemaInfo>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLSchemaInfo>();
template MRLSchemaTypeI*
copySchemaType<MRLSchemaInfo>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLShapeEnum>();
template MRLSchemaTypeI*
copySchemaType<MRLShapeEnum>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLShapeEnumArray>();
template MRLSchemaTypeI*
copySchemaType<MRLShapeEnumArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLStringArray>();
template MRLSchemaTypeI*
copySchemaType<MRLStringArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLStringProp>(MRLStringProp&, void**);
template bool readMembers<MRLStringProp>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLStringProp>();
template MRLSchemaTypeI*
copySchemaType<MRLStringProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLSwap>(MRLSwap&, void**);
template bool readMembers<MRLSwap>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLSwap>();
template MRLSchemaTypeI*
copySchemaType<MRLSwap>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLTavelHeader>(MRLTavelHeader&, void**);
template bool readMembers<MRLTavelHeader>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLTavelHeader>();
template MRLSchemaTypeI*
copySchemaType<MRLTavelHeader>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template MRLSchemaTypeI* createSchemaType<MRLThingArray>();
template MRLSchemaTypeI*
copySchemaType<MRLThingArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

template <>
void** memberValues<MRLThingProp>(MRLThingProp&, void**);
template bool readMembers<MRLThingProp>(MRLSchemaTypeI&, void**);

template MRLSchemaTypeI* createSchemaType<MRLThingProp>();
template MRLSchemaTypeI*
copySchemaType<MRLThingProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

} // namespace mrl::detail
