#pragma once

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <cstdio>
#include <string>

class HBLByteBuffer;
class HBLException;
class HBLI18NBuffer;
class HBLIDOM_Document;
class HBLIDOM_Element;
class HBLIDOM_Node;
class HBLThrowable;
class I18NString;
class MRLExceptionMessage;
class MRLIPFLogger;
class MRLObjectRegistryI;
class MRLTavelHeader;
class MRLZOR;
class PLQInputStream;

/// Static helpers around a session. Thread-safe.
class MRL_EXPORT MRLHelper {
public:
    /// Starts the crypto library for a service.
    /// @return 1, or 0 when it cannot start.
    static int initCrypto(const char* service);
    static void terminateCrypto(const char* service);

    /// Appends the encrypted form of a request to `out`.
    /// @throws HBLAssertError: this build has no crypto gateway, and a request that asks for protection does
    /// not go out without it.
    static void encryptTrusted(const char* data, std::size_t size, const char* service, HBLByteBuffer& out);

    // Configuration: where the services are, and what the deployment wants of them. docs/configuration.md.
    // Each asks the configuration anew, and throws HBLConfigurationError when it cannot be read.

    /// The endpoint of the content manager: the property "contentManager", else the first of
    /// "contentManagers".
    /// @throws HBLAssertError when it is not configured; MRLSOAPSession::setURI does without.
    static void getContentManagerURI(I18NString& uri);
    /// The endpoint of the dispatcher: the property "internalDispatcher", else, for `internalOnly` 0,
    /// "externalDispatcher", else "sdk".
    /// @throws HBLAssertError when it is not configured; MRLSOAPSession::setURI does without.
    static void getDispatcherURI(I18NString& uri, int internalOnly);
    /// An address of a dispatcher that the host keeps here for itself; empty at start.
    static void getUserSpecifiedURI(std::string& uri);
    static void setUserSpecifiedURI(const std::string& uri);
    /// Seconds after which an idle user is signed off: "inactivityTimeout" of the property "AAA"; 3600 when
    /// it is absent, 0 when it is no number.
    static unsigned int getLumenaInactivityTimeout();
    /// Sets `algorithm` to the one that protects PDF documents, of the property "CRYPTO"; "RC4" when it is
    /// not named there.
    /// @throws MRLException as parseXML() when the property is empty or no XML.
    static void getPdfSecurityAlgorithm(std::string& algorithm);

    // XML: documents from bytes, copies and addresses of nodes, failures as XML.

    /// Parses memory, a stream to its end, or a file. `document` is a new one in any case, empty after a
    /// failure. Nothing outside is read: a document type without declarations of its own is passed over, any
    /// other refused (HBLIDOM_Parser).
    /// @throws MRLException with line and column for what is no XML; HBLAssertError for null.
    static void parseXML(const char* buffer, std::size_t size, HBLIDOM_Document& document);
    static void parseXML(PLQInputStream& stream, HBLIDOM_Document& document);
    static void parseXML(const char* filename, HBLIDOM_Document& document);
    /// Reads and parses a report specification; one without a document type gets it. A null path, a file that
    /// cannot be opened and an empty one leave `document` as it was.
    /// @throws MRLException as parseXML(); HBLAssertError when the file cannot be read to its end.
    static void loadReportSpecificationFromFile(const char* path, HBLIDOM_Document& document);
    /// Puts a document type in front of the first tag of a document, which is not parsed.
    /// @param dtdPath null for that of report specifications; resolved by HBLFmDir::resolveEffectivePath.
    /// @param rootName null for "report".
    /// @return 1 with `out` holding the new document; 0, and `out` as it was, when there is no tag or there
    /// is a document type already.
    static int addDocumentTypeDeclaration(const char* buffer, std::size_t size, std::string& out,
                                          const char* dtdPath, const char* rootName);
    /// The address of an element, as "./a/b[2]/c": from the child of the nearest ancestor whose local name
    /// has the CRC-32 `stopCrc` (getCrc), else from the root without the "./".
    /// @param indexFromZero 1 when the first of several equal siblings is [0], else it is [1].
    static void getDomXPath(const HBLIDOM_Element& element, HBLI18NBuffer& path, unsigned int stopCrc,
                            int indexFromZero);
    /// A new document that holds a copy of an element with all below it, or of all that a document holds.
    /// @throws HBLAssertError for another kind of node.
    static HBLIDOM_Document clone(HBLIDOM_Node& nodeToClone);
    /// Opens a section at the end of a trace file, which is made if missing. The caller writes the section
    /// and gives the file to endXmlTraceFile(), behind which it is well-formed. One section at a time.
    /// @param attributes of the section, as XML; may be null.
    /// @return null when the file can be neither opened nor made.
    static std::FILE* startXmlTraceFile(const char* fileName, const char* attributes);
    /// Ends the section and closes the file; null is allowed.
    static void endXmlTraceFile(std::FILE* file);
    /// Appends a <message> element with `text` as its title.
    /// @param location is not escaped; may be null.
    static void writeErrorMessage(HBLByteBuffer& out, const I18NString& text, const char* location);
    /// The same with a message of the catalogue, which gets those parameters that are not empty.
    /// @param formatArgument1 the language; null for that of `formatArgument2`, null again for the default.
    static void writeErrorMessage(HBLByteBuffer& out, MRLExceptionMessage& message,
                                  const I18NString& parameter1, const I18NString& parameter2,
                                  const I18NString& parameter3, const char* location,
                                  const char* formatArgument1, const char* formatArgument2);
    /// Writes the error to the audit log where level 50000 is enabled, and 30000 with it.
    static void logException(HBLThrowable& error, MRLIPFLogger& logger);
    /// The same in the language of the property "serverLocale".
    static void logException(HBLException& error, MRLIPFLogger& logger);

    // Logon: a session for nobody in particular, and what stands in headers.

    /// Logs on without a user and sets `passport` to the id of the new session.
    /// @param fromPassportValue not 0 when the dispatcher answers in names and values, 0 for typed answers.
    /// @param dispatcherUri null or empty for getDispatcherURI().
    /// @throws HBLAssertError for a reply without the passport; what MRLSendSoap::send() and parseXML()
    /// throw.
    static void logonAsAnonymous(std::string& passport, int fromPassportValue, const char* dispatcherUri);
    /// Logs on in the same way and gives the header of the reply, owned by `registry`; null when the reply
    /// has something else in its place.
    static MRLTavelHeader* getMRLTavelHeaderForAnonymous(MRLObjectRegistryI* registry,
                                                         const char* dispatcherUri);
    /// The header that an XML text holds, owned by `registry`; null when it holds an object of another type.
    /// @throws HBLAssertError for null, for an empty text and for one without an object.
    static MRLTavelHeader* getMRLTavelHeaderFromString(const char* tavelHeader, MRLObjectRegistryI* registry);
    /// The access block that a cookie carries, owned by `registry`; null when it carries another type.
    /// @throws HBLAssertError for null and for an empty text; what HBLZORCookie and parseXML() throw.
    static MRLZOR* getMRLZORFromZORCookie(const char* zorCookie, MRLObjectRegistryI* registry);
    /// The id of the passport; null when there is none, and for a null header. Owned by the header.
    static const char* getPassport(const MRLTavelHeader* header);
    /// The value of the first form field, or transport variable, of that name that has one; else null.
    /// Owned by the header. @throws HBLAssertError for a null name.
    static const char* getFormFieldVar(const MRLTavelHeader* header, const char* name);
    static const char* getDispatcherTransportVar(const MRLTavelHeader* header, const char* name);

private:
    /// The document that tells the bus and the crypto library which service speaks; null is no service.
    static void getXMLSessionConfigDoc(const char* serviceId, std::string& out);

    static std::string s_sUserSpecifiedURI;
    static HBLThreadCriticalSection s_sUserSpecifiedURILock;
};
