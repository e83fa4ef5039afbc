#pragma once

#include "I18NRes/MRLNamespaceAuthorities.h"

/// The namespaces of the envelope.
namespace mrl::ns {

inline constexpr char developerAuthority[] = MRL_DEVELOPER_AUTHORITY;
inline constexpr char productAuthority[] = MRL_PRODUCT_AUTHORITY;

inline constexpr char soapEnvelope[] = "http://schemas.xmlsoap.org/soap/envelope/";
inline constexpr char soapEncoding[] = "http://schemas.xmlsoap.org/soap/encoding/";
inline constexpr char xmlSchema[] = "http://www.w3.org/2001/XMLSchema";
inline constexpr char xmlSchemaInstance[] = "http://www.w3.org/2001/XMLSchema-instance";

/// The namespace of every type of the bus, "bus:" on the wire.
inline constexpr char bus[] = MRL_DEVELOPER_AUTHORITY "/schemas/tavel/3/";

} // namespace mrl::ns
