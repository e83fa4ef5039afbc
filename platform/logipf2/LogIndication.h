#pragma once

#include "HBLCore/I18NString.h"
#include "logipf2/LOGObject.h"

/// The base of the toolkit's records: who wrote it, how important it is, and to which session, request and
/// step it belongs. One thread at a time.
class MRL_EXPORT LogIndication : public LOGObject {
public:
    void setLevel(int level) { m_level = level; }
    int getLevel() const override { return m_level; }
    void setSessionID(const I18NString& id) { m_sessionID = id; }
    void setRequestID(const I18NString& id) { m_requestID = id; }
    void setSubRequestID(const I18NString& id) { m_subRequestID = id; }
    void setStepID(const I18NString& id) { m_stepID = id; }

    void getFields(LogFieldsI& fields) const override;

protected:
    /// @param component who writes the record, "MRL".
    /// @param version of what this component puts into its records: a reader of old logs can tell by it
    /// what the texts mean. 7 for "MRL".
    LogIndication(const I18NString& component, int version);

private:
    I18NString m_component;
    int m_version;
    int m_level = 50000;
    I18NString m_sessionID;
    I18NString m_requestID;
    I18NString m_subRequestID;
    I18NString m_stepID;
};
