#pragma once

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

class HBLIDOM_Node;

namespace mrl::detail {
struct PropertyAccess;
} // namespace mrl::detail

/// The toolkit's tuning values, by name: one store for the process, read once from an XML file that may be
/// missing. Every reader has a default of its own, so an empty store is a normal one. docs/properties.md
/// lists the properties.
///
/// The file is "../configuration/renqproperties.xml", seen from the installation's directory for programs
/// (HBLFmDir::resolveEffectivePath): below the directory that the environment variable MRL_HOME names when
/// it is set, else beside the directory of the running program. A file that cannot be read, is not
/// well-formed, has a document type declaration, or is larger than 4 MiB counts as missing.
///
/// Names have case. Only the CRC-32 of a name is kept, so two names with the same one are one property.
/// Reading is safe from any thread.
class MRL_EXPORT MRLProperty {
public:
    /// The store, read from its file on first use.
    /// @throws HBLOutOfMemoryError, HBLIDOM_DOMException; the next call then starts over.
    static const MRLProperty& getInstance();

    /// Ends the store; the next getInstance() reads the file again. Nobody may be reading from it.
    static void deleteInstance();

    MRLProperty(const MRLProperty&) = delete;
    MRLProperty& operator=(const MRLProperty&) = delete;

    /// @return 1 and the text when there is such a property, whatever its kind; else 0 and `value` stays, as
    /// it does for a null name.
    int getValue(const char* name, I18NString& value) const;
    /// The same for a property of type "long": leading white space and a sign are taken, the first character
    /// that is no digit ends the number, and a text without digits is 0.
    int getValue(const char* name, int& value) const;
    /// The same; a negative number wraps.
    int getValue(const char* name, unsigned int& value) const;

private:
    friend struct mrl::detail::PropertyAccess; // the private operations, for tests

    class PropertyValue {
    public:
        std::int32_t getIsNumber() const { return m_isNumber; }
        void setIsNumber(std::int32_t isNumber) { m_isNumber = isNumber; }
        const I18NString& getValue() const { return m_value; }
        void setValue(const I18NString& value) { m_value = value; }

    private:
        std::int32_t m_isNumber = 0; // not 0: may be read as a number
        I18NString m_value;
    };

    MRLProperty() = default;
    ~MRLProperty() = default;
    friend struct std::default_delete<MRLProperty>;

    /// Ends the store, and has the next one read from `path`. Not while another thread may ask for the
    /// first time.
    static void setConfigFile(std::string path);
    /// Sets or replaces. Not while another thread reads.
    void setValue(const char* rProperty, const I18NString& value, int isNumber);
    const PropertyValue* find(const char* name) const;
    static unsigned int getKey(const char* rProperty);

    static std::string& configFile();
    static void destroyInstance();
    void load();
    void loadEntry(const HBLIDOM_Node& entry);
    const PropertyValue* findNumber(const char* name) const;

    static std::atomic<MRLProperty*> s_instance; // owned; null until first use
    static HBLThreadCriticalSection s_lock;

    std::map<std::uint32_t, std::unique_ptr<PropertyValue>> m_values; // by getKey of the name
};
