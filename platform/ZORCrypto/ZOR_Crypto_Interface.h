#pragma once

#include "HBLCore/MRLExport.h"
#include "ZORCrypto/ZORError.h"

#include <cstdint>

// The crypto library as the toolkit calls it: documents in, a status out. What the functions do is told by
// small XML documents; what they return belongs to the caller, who frees it with ZOR_CryptoFree.
//
// Each function returns 0 for success or one of ZORStatus, all negative, and throws nothing. `reserved` is
// always 0. A `details` that is not null receives a text for people on failure, without secrets, and null
// otherwise.
//
// A handle belongs to one thread at a time; everything else is thread-safe. The formats of what is returned,
// the keys, and what they protect against are told in docs/security.md.

using ZOR_Int32 = std::int32_t;
using ZOR_UInt32 = std::uint32_t;
using ZOR_Handle = void*;

/// Whether a status means success. A macro, because assertions show their condition as it is written.
#define ZOR_SUCCEEDED(status) ((status) >= 0)

/// Starts the library for a service. A key store that is there is checked; a missing one is made when
/// a key is needed first.
/// @param document `<initializeDocument><serviceID>...</serviceID></initializeDocument>`
MRL_EXPORT ZOR_Int32 ZOR_CryptoInitialize(const char* document, ZOR_UInt32 reserved, char** details);

/// Ends what ZOR_CryptoInitialize began for the service; with the last one the keys in memory are wiped.
/// @param document `<terminateDocument><serviceID>...</serviceID></terminateDocument>`
MRL_EXPORT ZOR_Int32 ZOR_CryptoTerminate(const char* document, ZOR_UInt32 reserved, char** details);

/// Opens a handle, which lives as long as the process.
/// @param document `<sessionConfigDocument><serviceID>...</serviceID></sessionConfigDocument>`
MRL_EXPORT ZOR_Int32 ZOR_PersistentInitialize(ZOR_Handle* handle, const char* document, ZOR_UInt32 reserved,
                                              char** details);

/// Sets what the handle is for.
/// @param document `<setInfoDocument><action>A</action></setInfoDocument>`, A being one of CSKEncrypt,
/// VantorTrustedRequest, ReportSpecSign, SecureStateSign. `<dataLocation>memory</dataLocation>` may follow;
/// for SecureStateSign `<externalFlag>true</externalFlag>` marks the states that the handle issues.
MRL_EXPORT ZOR_Int32 ZOR_SetInfo(ZOR_Handle handle, const char* document, ZOR_UInt32 reserved);

/// Tells of the secure state that the handle accepted last.
/// @param document `<getInfoDocument><externalFlag/><validationFlag/></getInfoDocument>` or one of the two
/// @param result the same document with "true" or "false" in each element
MRL_EXPORT ZOR_Int32 ZOR_GetInfo(ZOR_Handle handle, const char* document, char** result, ZOR_UInt32 reserved);

/// Encrypts `data`, or makes a signature for it, as the handle's purpose says. A signed specification is
/// `data` followed by its signature. For secure states `data` is the passport's id, and the result is the
/// state issued for it, as text.
/// @param size 1 at least.
MRL_EXPORT ZOR_Int32 ZOR_ProtectData(ZOR_Handle handle, const char* data, ZOR_UInt32 size, char** result,
                                     ZOR_UInt32* resultSize, ZOR_UInt32 reserved);

/// The reverse.
/// - Data and trusted requests: `result` receives the clear bytes.
/// - Specifications: `resultSize` receives the number of bytes that the signature covers, which is where it
///   begins; `result` stays as it is.
/// - Secure states: `data` is the passport's id; `result` and `resultSize` hold the state, which stays as it
/// is. What was changed, made for another purpose or service, or with a key that the store does not hold, is
/// refused with a negative status.
MRL_EXPORT ZOR_Int32 ZOR_UnprotectData(ZOR_Handle handle, const char* data, ZOR_UInt32 size, char** result,
                                       ZOR_UInt32* resultSize, ZOR_UInt32 reserved);

/// Encrypts a credential so that it opens only together with the passport.
/// @param flags none is defined: 0.
MRL_EXPORT ZOR_Int32 ZOR_EncryptCredential(const char* credential, ZOR_UInt32 length, const char* passport,
                                           ZOR_UInt32 passportLength, ZOR_UInt32 flags, char** result,
                                           ZOR_UInt32* resultSize, ZOR_UInt32 reserved);

/// The reverse.
MRL_EXPORT ZOR_Int32 ZOR_DecryptCredential(const char* encrypted, ZOR_UInt32 size, const char* passport,
                                           ZOR_UInt32 passportLength, char** result, ZOR_UInt32* resultSize,
                                           ZOR_UInt32 reserved);

/// Gives the text of the last failure on this handle, or null.
MRL_EXPORT ZOR_Int32 ZOR_CryptoGetLastErrorDetails(ZOR_Handle handle, ZOR_UInt32 reserved, char** details);

/// Wipes and frees what one of the other functions returned; null is allowed.
MRL_EXPORT void ZOR_CryptoFree(void* pointer, ZOR_UInt32 reserved);
