#pragma once

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/I18NConverter.h"
#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"
#include "HBLIDOM/HBLIDOM_Element.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

/// What a selection in a report does.
enum MRLSelectionUIEnabled : int {
    eMRLSelectionUINone = 0,
    eMRLSelectionUIDrill = 1,
};

/// How the values of prompts are put together with what a report asks for.
enum MRLPromptReconciliation : int {
    eMRLPromptReconciliationComplete = 0,
    eMRLPromptReconciliationGrouped = 1,
    eMRLPromptReconciliationChunkedGrouped = 2,
    eMRLPromptReconciliationChunked = 3,
};

/// The settings of a report server, as the configuration had them when they were first asked for: one
/// snapshot for the process. docs/configuration.md lists the advanced settings by name, and which getter
/// gives which. Reading is safe from any thread.
class MRL_EXPORT MRLConfigSettings {
public:
    /// The settings, read from the configuration on first use.
    /// @param componentName who asks. Advanced settings and limits of charts are for those whose name begins
    /// with "RENQ", in any case; others have the defaults. Only the first call's counts.
    /// @throws HBLAssertError for advanced settings that are no XML; HBLConfigurationError;
    /// HBLOutOfMemoryError. The next call then starts over.
    static MRLConfigSettings& getInstance(const I18NString& componentName);

    /// Ends the snapshot; the next getInstance() reads anew. Nobody may be reading from it.
    static void deleteInstance();

    MRLConfigSettings(const MRLConfigSettings&) = delete;
    MRLConfigSettings& operator=(const MRLConfigSettings&) = delete;
    virtual ~MRLConfigSettings();

    /// Applies one advanced setting; a name that is not known does nothing. Not while another thread reads.
    /// @param csvEncoding receives the encoding of CSV output, which has no getter until settings are read.
    /// @param delimiterFromLocale becomes 1 when the delimiter is to be that of the locale.
    void setAdvancedSetting(const I18NString& name, const I18NString& value, std::string& csvEncoding,
                            int& delimiterFromLocale);

    /// The first child element of `parent` with that local name whose attribute has that value; null if
    /// there is none.
    /// @param namespaceUri null for any namespace.
    static HBLIDOM_Element findChildElementWithAttributeNS(HBLIDOM_Node parent,
                                                           const I18NString* namespaceUri,
                                                           const I18NString& localName,
                                                           const I18NString& attributeName,
                                                           const I18NString& attributeValue);

    /// A code point; 0 for the delimiter of the locale.
    const std::uint32_t& getCSVDelimiter() const { return m_csvDelimiter; }
    /// A code point.
    const std::uint32_t& getCSVQualifier() const { return m_csvQualifier; }
    const I18NString& getCSVTerminator() const { return m_csvTerminator; }
    const I18NString& getCSVMime() const { return m_csvMime; }
    /// Owned by the settings; null for the encoding of the locale.
    const I18NConverter* getCSVConverter() const { return m_CSV_CONVERTER.get(); }
    int getCSVRepeatXtabLabels() const { return m_csvRepeatXtabLabels; }
    int isCSVTrimSpaces() const { return m_csvTrimSpaces; }
    int isParametersSave() const { return m_parametersSave; }
    int isUseAlternateColours() const { return m_useAlternateColours; }
    int isEnableChartTransparencyIE() const { return m_enableChartTransparencyIE; }
    int isHyperlinkButtonNewWindow() const { return m_hyperlinkButtonNewWindow; }
    int isHyperlinkMultipleToolbars() const { return m_hyperlinkMultipleToolbars; }
    int isFileExtensionXLS() const { return m_fileExtensionXLS; }
    int isNavigationLumena() const { return m_navigationLumena; }
    /// -1 for no limit.
    int getChartHotSpotLimit() const { return m_chartHotSpotLimit; }
    MRLSelectionUIEnabled getSelectionUIEnabled() const { return m_selectionUIEnabled; }
    int getExcelDisplayHTML() const { return m_excelDisplayHTML; }
    int getIgnoreExpressionError() const { return m_ignoreExpressionError; }
    int getRenderPromptInBatch() const { return m_renderPromptInBatch; }
    const I18NString& getEmailEncoding() const { return m_emailEncoding; }
    int getLegacyRounding() const { return m_legacyRounding; }
    MRLPromptReconciliation getPromptReconciliation() const { return m_promptReconciliation; }
    int getPromptReconciliationChunkSize() const { return m_promptReconciliationChunkSize; }
    int getIgnoreXtabRenderError() const { return m_ignoreXtabRenderError; }
    int getGeneratePromptPageForOptionalParameters() const {
        return m_generatePromptPageForOptionalParameters;
    }
    unsigned int getConcurrentQueryNumHelpersPerProcess() const {
        return m_concurrentQueryNumHelpersPerProcess;
    }
    unsigned int getConcurrentQueryMaxNumHelpersPerReport() const {
        return m_concurrentQueryMaxNumHelpersPerReport;
    }
    int getConcurrentQueryEnabedForInteractiveOutput() const {
        return m_concurrentQueryEnabledForInteractiveOutput;
    }
    int getAxisLabelAsZero() const { return m_axisLabelAsZero; }
    int getKalsaSpecialCellValues() const { return m_kalsaSpecialCellValues; }
    int getIgnoreEmptyDetailPages() const { return m_ignoreEmptyDetailPages; }
    int getUseChartLegacyLabelFunctionality() const { return m_useChartLegacyLabelFunctionality; }
    int getFaultOnSoapActionMismatch() const { return m_faultOnSoapActionMismatch; }
    int getUseExcelNumberedSheetNames() const { return m_useExcelNumberedSheetNames; }
    const I18NString& getExcelDefaultFontFace() const { return m_excelDefaultFontFace; }
    float getExcelDefaultFontSize() const { return m_excelDefaultFontSize; }
    float getExcelDefaultRowHeight() const { return m_excelDefaultRowHeight; }
    int getUpgradeManagerCleanDirectories() const { return m_upgradeManagerCleanDirectories; }
    int getUpgradeManagerEnableLogging() const { return m_upgradeManagerEnableLogging; }
    /// 0 by offset, 1 indirect, 2 direct, 3 by paged index.
    int getVirtualMappingMode() const { return m_virtualMappingMode; }

private:
    struct Tables; // from names to fields

    explicit MRLConfigSettings(const I18NString& componentName);

    void readSettings();
    void readHotSpotLimit();
    void readAdvancedSettings(std::string& csvEncoding, int& delimiterFromLocale);
    void makeCsvConverter(std::string encoding);
    bool isReportServer() const;

    static std::atomic<MRLConfigSettings*> s_instance; // owned; null until first use
    static HBLThreadCriticalSection s_lock;

    I18NString m_componentName;
    std::uint32_t m_csvDelimiter = 0;
    std::uint32_t m_csvQualifier = 0;
    I18NString m_csvTerminator;
    I18NString m_csvMime;
    std::unique_ptr<const I18NConverter> m_CSV_CONVERTER;
    int m_csvRepeatXtabLabels = 0;
    int m_csvTrimSpaces = 0;
    int m_parametersSave = 0;
    int m_useAlternateColours = 0;
    int m_enableChartTransparencyIE = 1;
    int m_hyperlinkButtonNewWindow = 1;
    int m_hyperlinkMultipleToolbars = 1;
    int m_fileExtensionXLS = 0;
    int m_navigationLumena = 0;
    int m_chartHotSpotLimit = -1;
    MRLSelectionUIEnabled m_selectionUIEnabled = eMRLSelectionUINone;
    int m_excelDisplayHTML = 0;
    int m_ignoreExpressionError = 0;
    int m_renderPromptInBatch = 0;
    I18NString m_emailEncoding;
    int m_legacyRounding = 0;
    MRLPromptReconciliation m_promptReconciliation = eMRLPromptReconciliationComplete;
    int m_promptReconciliationChunkSize = 5;
    int m_ignoreXtabRenderError = 0;
    int m_generatePromptPageForOptionalParameters = 0;
    unsigned int m_concurrentQueryNumHelpersPerProcess = 0;
    unsigned int m_concurrentQueryMaxNumHelpersPerReport = 1;
    int m_concurrentQueryEnabledForInteractiveOutput = 0;
    int m_axisLabelAsZero = 0;
    int m_kalsaSpecialCellValues = 0;
    int m_ignoreEmptyDetailPages = 0;
    int m_useChartLegacyLabelFunctionality = 0;
    int m_faultOnSoapActionMismatch = 0;
    int m_useExcelNumberedSheetNames = 1;
    I18NString m_excelDefaultFontFace;
    float m_excelDefaultFontSize = 0;
    float m_excelDefaultRowHeight = 0;
    int m_upgradeManagerCleanDirectories = 0;
    int m_upgradeManagerEnableLogging = 0;
    int m_virtualMappingMode = 1;
};
