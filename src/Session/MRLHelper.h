#pragma once

#include "Session/MRLGetParametersMode.h"
#include "Session/MRLOutputTestType.h"

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/MRLExport.h"

#include <atomic>
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
class MRLDocumentOutput;
class MRLExceptionMessage;
class MRLIPFLogger;
class MRLObjectRegistryI;
class MRLTavelHeader;
class MRLXmlEncodedXML;
class MRLZOR;
class PLQInputStream;
struct timeb;

/// Static helpers around a session. Thread-safe.
class MRL_EXPORT MRLHelper {
public:
    // Crypto: the gateway to ZORCrypto, which has the keys. docs/security.md. Each purpose has one handle for
    // the process, opened with the service id of the first call that needs it, and a lock; no state besides.
    // A service id that the library refuses is an MRLException that says why; null is no service. Null data
    // and size 0 do nothing; sizes are cut to 32 bits.

    /// Starts the crypto library for a service. Keys are found where the environment variable MRL_KEY_STORE,
    /// else the property "keyStore", tells.
    /// @return 1, or 0 when it cannot start; the toolkit then works without.
    static int initCrypto(const char* service);
    /// Ends it; keys in memory are wiped with the last service.
    static void terminateCrypto(const char* service);

    /// Appends the encrypted form of data, which only the same service opens.
    /// @throws HBLAssertError when there are no keys; the back trace says why.
    static void encrypt(const char* data, std::size_t size, const char* service, HBLByteBuffer& out);
    /// The same in Base64.
    static void encryptAndEncode(const char* data, std::size_t size, const char* service, HBLByteBuffer& out);
    /// Appends the encrypted form of a request, as text. The bus opens it with ZORTrustedReader.
    static void encryptTrusted(const char* data, std::size_t size, const char* service, HBLByteBuffer& out);
    /// Replaces `out` by the specification with its signature behind it.
    static void signSpecification(const char* data, std::size_t size, const char* service,
                                  HBLByteBuffer& out);

    /// Sets `out` to the clear bytes.
    /// @return 1, or 0 with `out` holding the bytes as they came: they were not encrypted here, or changed.
    static int decrypt(const char* data, std::size_t size, const char* service, std::string& out);
    /// @return 1 when encrypt() made it and nobody changed it, else 0.
    static int verifyTrusted(const char* data, std::size_t size, const char* service);
    /// The reverse of encryptAndEncode().
    /// @return 1, or 0 with `*out` as it was.
    static int decryptAndDecode(const char* data, std::size_t size, const char* service, std::string* out);
    /// Checks a signed specification.
    /// @param signature receives where in `data` its signature begins; null when it is not good, or `data`
    /// empty.
    /// @return 1 when it is good or there is nothing to check, else 0.
    static int verifySpecSignature(const char* data, std::size_t size, const char* service,
                                   const char*& signature);
    /// @return 1 when the header's secure state was issued for its passport and says "external", else 0, also
    /// when the property "disableSpecSignCheck" is not 0.
    /// @throws HBLAssertError for null.
    static int getSecureStateExternal(const MRLTavelHeader* header, const char* service);

    /// Replaces `out` by the credential, encrypted so that it opens only together with the passport.
    /// @param flags 0. @throws HBLAssertError for null, other flags, an empty passport, or without keys.
    static void encryptCredential(const char* credential, const char* passport, unsigned int flags,
                                  HBLByteBuffer& out);
    /// The reverse. @throws HBLAssertError for null, and when it does not open.
    static void decryptCredential(const char* encrypted, unsigned int size, const char* passport,
                                  std::string& out);
    /// Parses a credential, encrypted or not: `document` then holds it in the clear.
    /// @param clear receives its XML when it was encrypted, else stays.
    /// @return 1, or 0 when it is no XML or does not open.
    static int decryptCredential(const char* xml, std::size_t size, HBLIDOM_Document& document,
                                 const char* service, std::string& clear);
    /// Sets `password` to that of a credential, empty when it has none.
    /// @return 1, or 0 when it is no XML or does not open.
    static int decodeCredentialPassword(const MRLXmlEncodedXML& credential, const char* service,
                                        std::string& password);

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

    // Text: escapes for output, checksums, small conversions. Bytes from 128 on, and with them UTF-8, pass
    // unchanged wherever bytes are escaped. "Appends" keeps what `out` holds. No state; any thread.

    /// Appends text escaped for XML: at most `size` bytes, up to the first NUL. Null data appends nothing.
    static void xmlEncode(const char* data, std::size_t size, HBLByteBuffer& out);
    /// The same for a page that a spreadsheet imports: spaces at the ends and behind others are kept.
    static void xmlEncodeForExcel(const char* data, std::size_t size, HBLByteBuffer& out);
    /// Appends text escaped for a string of a script, with the same bounds.
    static void javaScriptEncode(const char* data, std::size_t size, HBLByteBuffer& out);
    /// Appends text with the five entities of XML and the numeric ones resolved, with the same bounds; what
    /// is no such entity stays. A number becomes one byte; one above 256 has its second byte in front, as a
    /// decimal number.
    static void xmlDecode(const char* data, std::size_t size, HBLByteBuffer& out);
    /// Replaces `out` by UTF-16 text as a part of a URL's query: a space is "+", a unit from 128 on its bytes
    /// in UTF-8, surrogates one by one. An odd last byte is ignored.
    /// @throws HBLAssertError for null with a count.
    static void urlEncode(const void* input, std::size_t byteCount, HBLByteBuffer& out);
    static void urlEncode(const I18NString& text, HBLByteBuffer& out);
    /// Escapes what file names cannot hold ("%2f" for "/"), then applies shortenFileName().
    static void fileNameEncode(std::string& name);
    /// Escapes the same, and cuts what then has 32 characters or more to 23, "_" and the eight digits of the
    /// checksum of `path` as given.
    static void encodeObjectPathShort(std::string& path);

    /// Compares the first half of the shorter text's units, then the lengths.
    /// @return 0, or less or more than 0. @throws HBLAssertError for null.
    static int wstrcmp(const unsigned short* s1, const unsigned short* s2);
    /// Copies `source` as far as it fits into `size` bytes with its NUL.
    /// @return 1 when all was copied, else 0. A null source or size 0 writes one NUL all the same, so that
    /// `pszDest` needs a byte of room in any case. @throws HBLAssertError for a null `pszDest`.
    static int strSafeCopy(char* pszDest, std::size_t size, const char* source);
    /// Appends `source` as far as it fits into `size` bytes at `dest` altogether.
    /// @return 1 when all was appended, else 0.
    static int strSafeCat(char* dest, std::size_t size, const char* source);
    /// Writes the number in decimal as 16-bit units with a zero behind; 12 units are always enough.
    /// @return bytes written, the zero included. @throws HBLAssertError for null.
    static int convertNumToWideChar(int value, unsigned short* buffer);
    static int convertNumToWideChar(unsigned int value, unsigned short* buffer);
    /// Converts a measure of the style model, truncated towards zero; what an int cannot hold becomes the
    /// nearest that it can.
    /// @param unit 27 points, 28 picas, 29 inches, 30 centimetres, 31 millimetres, 32 and 35 widths of the
    /// font, 33 pixels.
    /// @param resolution pixels per inch. @param fontSize pixels; 0 for that of the default font.
    /// @return 1, or 0 with `pixels` as it was for another unit.
    static int convertToPixels(float value, int unit, float resolution, float fontSize, int& pixels);
    /// Sets `language` to what stands before the first "-".
    /// @return 1, or 0 with `language` as it was when there is none.
    static int getLanguage(const I18NString& locale, HBLI18NBuffer& language);

    /// Checksums: the CRC-32 of the UTF-16 units with the terminator, of the bytes without the NUL, of a
    /// node's XML in UTF-8. `start` is the checksum of what comes before, 0 for nothing; `mode` as in
    /// HBLUtCrc32::crc32, ignored for a buffer. The last two give it as a decimal number.
    /// @throws HBLAssertError for a null text.
    static unsigned int getCrc(const I18NString& s);
    static unsigned int getCrc(const I18NString& s, int mode);
    static unsigned int getCrc(const HBLI18NBuffer& s, int mode);
    static unsigned int getCrc(unsigned int start, const I18NString& s);
    static unsigned int getCrc(const char* strInput);
    static unsigned int getCrc(unsigned int start, const char* strInput);
    static unsigned int getCrc(const HBLIDOM_Node& node);
    static void getCrc(const char* strInput, std::string& out);
    static void getCrc(unsigned int start, const char* strInput, std::string& out);

    // Files: commands, names, paths, time stamps. Any thread.

    /// Runs a command by "/bin/sh -c", as popen does, and waits for its end. The command text, handed over in
    /// UTF-8, is trusted input: the shell does whatever it says, so nothing from outside may become a part of
    /// it unquoted. The command inherits environment, directory and open files of the process.
    /// @param pDocumentOutput what the command reads; null for nothing. A command that does not read it to
    /// its end is no failure.
    /// @param pOutput gets what the command writes, UTF-8, appended; null leaves it to the process's own
    /// output. Not both.
    /// @return the command's status as pclose() gives it: see waitpid(); -1 when there is none.
    /// @throws HBLAssertError for both, before anything is started; MRLException with the command, errno and
    /// its text when no process could be made; what reading the document throws.
    static int runCommand(const I18NString& command, MRLDocumentOutput* pDocumentOutput, I18NString* pOutput);
    /// Makes a path fit for a command of Windows' interpreter: each "/" becomes "\", each segment with a
    /// blank gets double quotes.
    static void fixCommandPath(I18NString& path);
    /// Sets `path` to the address of the gateway, from the configuration.
    /// @param stripLastSegment not 0 cuts it behind its last "/"; without one it stays whole.
    static void getBasePath(I18NString& path, int stripLastSegment);
    /// Splits at the last dot, which goes to neither; without one `base` is the name and `extension` stays.
    static void fileBasename(const std::string& name, std::string& base, std::string& extension);
    /// Rewrites a name of more than 130 bytes: its first 111, "...", its checksum and its extension. Where
    /// the last dot stands within that, the new name's own text from there on is the extension.
    static void shortenFileName(std::string& name);
    static void stripBackSlash(I18NString& text);
    /// Makes a directory for output under test, below "../webcontent" as HBLFmDir::resolveEffectivePath sees
    /// it, and sets `path` to it with a "/" behind.
    /// @return 1, or 0 with `path` as it was for another type and when there can be no such directory.
    static int createTestOutputPath(MRLOutputTestType type, std::string& path);
    /// The directory "renq" below the configuration's "temp", made if missing.
    /// @throws HBLAssertError when there can be none; the back trace names it.
    static std::string findOrCreateRenqTempDir();
    /// Sets `out` to a time in UTC, as "2026-11-21T06:30:00.000Z".
    /// @param when null for now. @throws HBLAssertError for a year that no calendar has.
    static void getCurrentTime(std::string& out, const timeb* when);
    /// Loads the configuration from its default place, or from the file of that name.
    /// @throws MRLException as parseXML(); HBLConfigurationError for what is no configuration.
    static void initializeHBLConfiguration(const std::string& configuration);
    /// Sets the attribute "resolveConnection" of `element` to "true" or "false", or not at all for a mode
    /// that says nothing.
    /// @param flag not 0 is "true" for eMRLGetParametersByFlag.
    static void resolveGetParametersConnection(HBLIDOM_Element& element, MRLGetParametersMode mode, int flag);

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
    /// has the CRC-32 `stopCrc`, of either form of the text (getCrc), else from the root without the "./".
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
    /// A borrowed view of an open handle and of the lock that goes with it.
    class MRLZORHandle {
    public:
        MRLZORHandle() = default;
        MRLZORHandle(const MRLZORHandle&) = delete;
        MRLZORHandle& operator=(const MRLZORHandle&) = delete;
        virtual ~MRLZORHandle();

        void load(void* handle, HBLThreadCriticalSection& lock);
        /// @throws HBLAssertError when nothing was loaded.
        void* getHandle() const;
        HBLThreadCriticalSection& getCritSection() const;

    private:
        void* m_handle = nullptr;
        HBLThreadCriticalSection* m_critSection = nullptr;
    };

    /// What a handle is for.
    enum RSZORInfoMode { eRSZORGeneral = 0, eRSZORTrusted = 1, eRSZORSpecSign = 2, eRSZORSecureState = 3 };

    struct CryptoPurpose;
    static void openHandle(const CryptoPurpose& purpose, const char* service, MRLZORHandle& handle);
    static void getCryptoHandle(const char* service, MRLZORHandle& handle);
    static void getTrustedCryptoHandle(const char* service, MRLZORHandle& handle);
    static void getSpecSignCryptoHandle(const char* service, MRLZORHandle& handle);
    static void getSecureStateCryptoHandle(const char* service, MRLZORHandle& handle);
    static void encryptData(const char* data, std::size_t size, const char* service, HBLByteBuffer& out,
                            RSZORInfoMode mode);
    static int decryptData(const char* data, std::size_t size, const char* service, std::string* out,
                           int trusted);

    // For each purpose its handle, whether that is open, its lock, and the document that sets the purpose.
    static void* s_hCSKCrypto;
    static std::atomic<int> b_hCSKCryptoInitialized;
    static HBLThreadCriticalSection s_hCSKCryptoLock;
    static const char* const s_xmlSetInfoDoc;
    static void* s_hTrustedCrypto;
    static std::atomic<int> b_hTrustedCryptoInitialized;
    static HBLThreadCriticalSection s_hTrustedCryptoLock;
    static const char* const s_xmlTrustedSetInfoDoc;
    static void* s_hSpecSignCrypto;
    static std::atomic<int> b_hSpecSignCryptoInitialized;
    static HBLThreadCriticalSection s_hSpecSignCryptoLock;
    static const char* const s_xmlSpecSignSetInfoDoc;
    static void* s_hSecureStateCrypto;
    static std::atomic<int> b_hSecureStateCryptoInitialized;
    static HBLThreadCriticalSection s_hSecureStateCryptoLock;
    static const char* const s_xmlSecureStateSetInfoDoc;

    /// The document that tells the bus and the crypto library which service speaks; null is no service.
    static void getXMLSessionConfigDoc(const char* serviceId, std::string& out);

    static std::string s_sUserSpecifiedURI;
    static HBLThreadCriticalSection s_sUserSpecifiedURILock;
};
