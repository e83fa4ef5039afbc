// Generated from the catalogue: all types, sorted by number.
#include "Toolkit/MRLSchemaTypeRows.h"

#include <iterator>

class MRLFaultDetailMessage;
class MRLBox;
class MRLLabel;
class MRLPartArrayProp;
class MRLSchemaInfo;
class MRLSwap;
class MRLPartArray;
class MRLIntArray;
class MRLPart;
class MRLBareGadget;
class MRLDecimalProp;
class MRLZORException;
class MRLFaultDetail;
class MRLBooleanProp;
class MRLThingArray;
class MRLThingProp;
class MRLPromptInfo;
class MRLZOR;
class MRLFaultDetailMessageArray;
class MRLMarker;
class MRLRefProp;
class MRLFaultDetailArray;
class MRLStringArray;
class MRLStringProp;
class MRLMessageArray;
class MRLTavelHeader;
class MRLShapeEnumArray;
class MRLGadget;
class MRLMessage;
class MRLShapeEnum;
class MRLLabelArray;
class MRLDateTimeArray;

namespace mrl::detail {

// Instantiated in MRLSchemaTypesSupportFactory*_gen_.cpp, which know the classes.
extern template MRLSchemaTypeI* createSchemaType<MRLFaultDetailMessage>();
extern template MRLSchemaTypeI*
copySchemaType<MRLFaultDetailMessage>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLFaultDetailMessage>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLBox>();
extern template MRLSchemaTypeI*
copySchemaType<MRLBox>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLBox>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLLabel>();
extern template MRLSchemaTypeI*
copySchemaType<MRLLabel>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLLabel>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLPartArrayProp>();
extern template MRLSchemaTypeI*
copySchemaType<MRLPartArrayProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLPartArrayProp>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLSchemaInfo>();
extern template MRLSchemaTypeI*
copySchemaType<MRLSchemaInfo>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLSchemaInfo>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLSwap>();
extern template MRLSchemaTypeI*
copySchemaType<MRLSwap>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLSwap>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLPartArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLPartArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLIntArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLIntArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLPart>();
extern template MRLSchemaTypeI*
copySchemaType<MRLPart>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLPart>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLBareGadget>();
extern template MRLSchemaTypeI*
copySchemaType<MRLBareGadget>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLBareGadget>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLDecimalProp>();
extern template MRLSchemaTypeI*
copySchemaType<MRLDecimalProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLDecimalProp>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLZORException>();
extern template MRLSchemaTypeI*
copySchemaType<MRLZORException>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLZORException>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLFaultDetail>();
extern template MRLSchemaTypeI*
copySchemaType<MRLFaultDetail>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLFaultDetail>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLBooleanProp>();
extern template MRLSchemaTypeI*
copySchemaType<MRLBooleanProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLBooleanProp>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLThingArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLThingArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLThingProp>();
extern template MRLSchemaTypeI*
copySchemaType<MRLThingProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLThingProp>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLPromptInfo>();
extern template MRLSchemaTypeI*
copySchemaType<MRLPromptInfo>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLPromptInfo>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLZOR>();
extern template MRLSchemaTypeI*
copySchemaType<MRLZOR>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLZOR>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLFaultDetailMessageArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLFaultDetailMessageArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLMarker>();
extern template MRLSchemaTypeI*
copySchemaType<MRLMarker>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLMarker>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLRefProp>();
extern template MRLSchemaTypeI*
copySchemaType<MRLRefProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLRefProp>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLFaultDetailArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLFaultDetailArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLStringArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLStringArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLStringProp>();
extern template MRLSchemaTypeI*
copySchemaType<MRLStringProp>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLStringProp>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLMessageArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLMessageArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLTavelHeader>();
extern template MRLSchemaTypeI*
copySchemaType<MRLTavelHeader>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLTavelHeader>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLShapeEnumArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLShapeEnumArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLGadget>();
extern template MRLSchemaTypeI*
copySchemaType<MRLGadget>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLGadget>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLMessage>();
extern template MRLSchemaTypeI*
copySchemaType<MRLMessage>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template bool readMembers<MRLMessage>(MRLSchemaTypeI&, void**);
extern template MRLSchemaTypeI* createSchemaType<MRLShapeEnum>();
extern template MRLSchemaTypeI*
copySchemaType<MRLShapeEnum>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLLabelArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLLabelArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);
extern template MRLSchemaTypeI* createSchemaType<MRLDateTimeArray>();
extern template MRLSchemaTypeI*
copySchemaType<MRLDateTimeArray>(const MRLSchemaTypeI&, MRLObjectRegistryI&);

static constexpr SchemaTypeRow g_schemaTypeRows[] = {
    {MRLSchemaTypeI::eMRLFaultDetailMessage, "bus:faultDetailMessage",
     &createSchemaType<MRLFaultDetailMessage>, &copySchemaType<MRLFaultDetailMessage>,
     nullptr, false, &readMembers<MRLFaultDetailMessage>},
    {MRLSchemaTypeI::eMRLBox, "bus:box",
     &createSchemaType<MRLBox>, &copySchemaType<MRLBox>,
     nullptr, false, &readMembers<MRLBox>},
    {MRLSchemaTypeI::eMRLLabel, "bus:label",
     &createSchemaType<MRLLabel>, &copySchemaType<MRLLabel>,
     nullptr, false, &readMembers<MRLLabel>},
    {MRLSchemaTypeI::eMRLPartArrayProp, "bus:partArrayProp",
     &createSchemaType<MRLPartArrayProp>, &copySchemaType<MRLPartArrayProp>,
     nullptr, false, &readMembers<MRLPartArrayProp>},
    {MRLSchemaTypeI::eMRLSchemaInfo, "bus:schemaInfo",
     &createSchemaType<MRLSchemaInfo>, &copySchemaType<MRLSchemaInfo>,
     nullptr, false, &readMembers<MRLSchemaInfo>},
    {MRLSchemaTypeI::eMRLSwap, "bus:swap",
     &createSchemaType<MRLSwap>, &copySchemaType<MRLSwap>,
     nullptr, false, &readMembers<MRLSwap>},
    {MRLSchemaTypeI::eMRLBaseProp, "bus:baseProp", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eMRLPartArray, "bus:partArray",
     &createSchemaType<MRLPartArray>, &copySchemaType<MRLPartArray>,
     "bus:part", true, nullptr},
    {MRLSchemaTypeI::eMRLIntArray, "bus:intArray",
     &createSchemaType<MRLIntArray>, &copySchemaType<MRLIntArray>,
     "xs:int", false, nullptr},
    {MRLSchemaTypeI::eMRLPart, "bus:part",
     &createSchemaType<MRLPart>, &copySchemaType<MRLPart>,
     nullptr, false, &readMembers<MRLPart>},
    {MRLSchemaTypeI::eMRLBareGadget, "bus:bareGadget",
     &createSchemaType<MRLBareGadget>, &copySchemaType<MRLBareGadget>,
     nullptr, false, &readMembers<MRLBareGadget>},
    {MRLSchemaTypeI::eMRLDecimalProp, "bus:decimalProp",
     &createSchemaType<MRLDecimalProp>, &copySchemaType<MRLDecimalProp>,
     nullptr, false, &readMembers<MRLDecimalProp>},
    {MRLSchemaTypeI::eMRLZORException, "bus:ZORException",
     &createSchemaType<MRLZORException>, &copySchemaType<MRLZORException>,
     nullptr, false, &readMembers<MRLZORException>},
    {MRLSchemaTypeI::eMRLFaultDetail, "bus:faultDetail",
     &createSchemaType<MRLFaultDetail>, &copySchemaType<MRLFaultDetail>,
     nullptr, false, &readMembers<MRLFaultDetail>},
    {MRLSchemaTypeI::eMRLBooleanProp, "bus:booleanProp",
     &createSchemaType<MRLBooleanProp>, &copySchemaType<MRLBooleanProp>,
     nullptr, false, &readMembers<MRLBooleanProp>},
    {MRLSchemaTypeI::eMRLThing, "bus:thing", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eMRLThingArray, "bus:thingArray",
     &createSchemaType<MRLThingArray>, &copySchemaType<MRLThingArray>,
     "bus:thing", true, nullptr},
    {MRLSchemaTypeI::eMRLThingProp, "bus:thingProp",
     &createSchemaType<MRLThingProp>, &copySchemaType<MRLThingProp>,
     nullptr, false, &readMembers<MRLThingProp>},
    {MRLSchemaTypeI::eMRLPromptInfo, "bus:promptInfo",
     &createSchemaType<MRLPromptInfo>, &copySchemaType<MRLPromptInfo>,
     nullptr, false, &readMembers<MRLPromptInfo>},
    {MRLSchemaTypeI::eMRLZOR, "bus:ZOR",
     &createSchemaType<MRLZOR>, &copySchemaType<MRLZOR>,
     nullptr, false, &readMembers<MRLZOR>},
    {MRLSchemaTypeI::eMRLFaultDetailMessageArray, "bus:faultDetailMessageArray",
     &createSchemaType<MRLFaultDetailMessageArray>, &copySchemaType<MRLFaultDetailMessageArray>,
     "bus:faultDetailMessage", true, nullptr},
    {MRLSchemaTypeI::eMRLMarker, "bus:marker",
     &createSchemaType<MRLMarker>, &copySchemaType<MRLMarker>,
     nullptr, false, &readMembers<MRLMarker>},
    {MRLSchemaTypeI::eMRLRefProp, "bus:refProp",
     &createSchemaType<MRLRefProp>, &copySchemaType<MRLRefProp>,
     nullptr, false, &readMembers<MRLRefProp>},
    {MRLSchemaTypeI::eMRLFaultDetailArray, "bus:faultDetailArray",
     &createSchemaType<MRLFaultDetailArray>, &copySchemaType<MRLFaultDetailArray>,
     "bus:faultDetail", true, nullptr},
    {MRLSchemaTypeI::eMRLStringArray, "bus:stringArray",
     &createSchemaType<MRLStringArray>, &copySchemaType<MRLStringArray>,
     "xs:string", false, nullptr},
    {MRLSchemaTypeI::eMRLStringProp, "bus:stringProp",
     &createSchemaType<MRLStringProp>, &copySchemaType<MRLStringProp>,
     nullptr, false, &readMembers<MRLStringProp>},
    {MRLSchemaTypeI::eMRLMessageArray, "bus:messageArray",
     &createSchemaType<MRLMessageArray>, &copySchemaType<MRLMessageArray>,
     "bus:message", true, nullptr},
    {MRLSchemaTypeI::eMRLTavelHeader, "bus:tavelHeader",
     &createSchemaType<MRLTavelHeader>, &copySchemaType<MRLTavelHeader>,
     nullptr, false, &readMembers<MRLTavelHeader>},
    {MRLSchemaTypeI::eMRLShapeEnumArray, "bus:shapeEnumArray",
     &createSchemaType<MRLShapeEnumArray>, &copySchemaType<MRLShapeEnumArray>,
     "bus:shapeEnum", true, nullptr},
    {MRLSchemaTypeI::eMRLGadget, "bus:gadget",
     &createSchemaType<MRLGadget>, &copySchemaType<MRLGadget>,
     nullptr, false, &readMembers<MRLGadget>},
    {MRLSchemaTypeI::eMRLMessage, "bus:message",
     &createSchemaType<MRLMessage>, &copySchemaType<MRLMessage>,
     nullptr, false, &readMembers<MRLMessage>},
    {MRLSchemaTypeI::eMRLShapeEnum, "bus:shapeEnum",
     &createSchemaType<MRLShapeEnum>, &copySchemaType<MRLShapeEnum>,
     nullptr, false, nullptr},
    {MRLSchemaTypeI::eMRLLabelArray, "bus:labelArray",
     &createSchemaType<MRLLabelArray>, &copySchemaType<MRLLabelArray>,
     "bus:label", true, nullptr},
    {MRLSchemaTypeI::eMRLDateTimeArray, "bus:dateTimeArray",
     &createSchemaType<MRLDateTimeArray>, &copySchemaType<MRLDateTimeArray>,
     "xs:dateTime", false, nullptr},
};

static constexpr SchemaTypeBuckets g_schemaTypeBuckets = schemaTypeBuckets(g_schemaTypeRows);

constinit const SchemaTypeTable g_schemaTypes = {g_schemaTypeRows, std::size(g_schemaTypeRows),
                                                 &g_schemaTypeBuckets};

} // namespace mrl::detail
