#pragma once

#include "HBLCore/I18NString.h"
#include "HBLIDOM/HBLIDOM_Element.h"

/// The deployment's configuration: properties by name, each a text or a small tree of elements. A question
/// before anything was loaded or configured loads first. Thread-safe: every answer is the caller's own and
/// comes from one complete state, the one before or the one behind a load() or configure() elsewhere.
class MRL_EXPORT IHBLConfiguration {
public:
    /// Takes a configuration from memory. The element decides what it does:
    /// - "parameters" of the configuration's namespace, the root of a configuration file: takes the place of
    ///   everything loaded or configured before;
    /// - "queryResult", the answer of a content manager (`item`, in it one element for each property with
    ///   its `value`): lays these properties over what is there.
    /// Nothing is kept of the element. A later load() leaves all as it is.
    /// @throws HBLAssertError for a null element; HBLConfigurationError for one that is no configuration:
    /// everything then stays as it was.
    virtual void configure(const HBLIDOM_Element& element) = 0;

    /// Reads the file of HBLConfigurationFactory::getDefaultLocation(). Where there is none, the properties
    /// have their documented defaults. Does nothing when a configuration was loaded or configured already.
    /// @throws HBLConfigurationError with file, line and column for a file that cannot be read or is no
    /// configuration, and for a missing one that the environment names. The next call starts over.
    virtual void load() = 0;

    /// The value of a text, without white space at its ends; of a tree, its XML in UTF-8 form with the root
    /// "qzn:value" and every namespace that it needs.
    /// @return the configured value; else `*defaultValue`, if given; else the documented default; else an
    /// empty text.
    virtual I18NString getProperty(const I18NString& name,
                                   const I18NString* defaultValue = nullptr) const = 0;

    /// The value of a property that is a tree: the element "qzn:value", root of a document of its own.
    /// @return the configured value; else `*defaultValue`, if given; else null, also when it is a text.
    virtual HBLIDOM_Node getPropertyElement(const I18NString& name,
                                            const HBLIDOM_Node* defaultValue = nullptr) const = 0;

    IHBLConfiguration(const IHBLConfiguration&) = delete;
    IHBLConfiguration& operator=(const IHBLConfiguration&) = delete;

protected:
    IHBLConfiguration() = default;
    ~IHBLConfiguration() = default; // the factory's to end
};
