#include "validation/modvalFields.h"

#include "channels/modvalBandLimits.h"
#include "channels/modvalChannels.h"
#include "common/Lookup.h"
#include "common/Procedure.h"
#include "networks/modvalEmergency.h"
#include "networks/modvalEmergencyFields.h"
#include "networks/modvalNetworkFields.h"
#include "networks/modvalNetworks.h"
#include "radioui/modvalDataFields.h"
#include "radioui/modvalFunctionKeys.h"
#include "radioui/modvalGPSFields.h"
#include "radioui/modvalOptionFields.h"
#include "radioui/modvalPTT.h"
#include "radioui/modvalProgIO.h"
#include "radioui/modvalUIPreference.h"
#include "scangroups/modvalScanGroups.h"
#include "selcall/modvalBursts.h"
#include "selcall/modvalControlStatus.h"
#include "selcall/modvalFreeFormat.h"
#include "selcall/modvalSelcall.h"
#include "selcall/modvalToneSets.h"
#include "signalling/modvalDTMF.h"
#include "signalling/modvalSIBT.h"
#include "signalling/modvalType99.h"
#include "validation/modvalSwitches.h"

namespace modvalFields {
namespace {
struct FieldRule {
  std::string_view uiid;  ///< in upper case
  bool (*rule)(FieldEdit&);
};

using namespace modvalChannels;
using namespace modvalDataFields;
using namespace modvalEmergencyFields;
using namespace modvalGPSFields;
using namespace modvalNetworkFields;
using namespace modvalNetworks;
using namespace modvalOptionFields;

/// Rules of the network forms act on the network that the forms show, whichever record the host names;
/// without one there is nothing to judge.
template <bool (*rule)(FieldEdit&)>
bool OnCurrentNetwork(FieldEdit& edit) {
  edit.record = edit.CurrentNetwork();
  const bool exists = edit.validator.CurrentProvider().Field("NetworkID").HasRecord(edit.record);
  return exists ? rule(edit) : edit.PassUnchanged();
}

/// Nothing is judged; what the edit does is to switch the controls beside it.
bool SwitchesAlone(FieldEdit&) { return true; }

// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
constexpr FieldRule kRules[] = {
    // channels
    {"CHANNELID_K6K",              modvalChannels::ValidateChannelID},
    {"CHANNELNETWORKID_K6K",       modvalChannels::ValidateChannelID},
    {"RXFREQ_K6K",                 ValidateFrequency},
    {"TXFREQ_K6K",                 ValidateFrequency},
    {"TXPOWER_K6K",                ValidateTxPower},
    {"CHANNELANR",                 ValidateNoiseReduction},
    {"CHANNELCOMPANDING",          ValidateCompanding},
    {"RXSIGNALLING_K6K",           modvalSIBT::ValidateRXSignalling},
    {"TXSIGNALLING_K6K",           modvalSIBT::ValidateTXSignalling},
    // scan groups
    {"SCANTYPE_K6K",               modvalScanGroups::ValidateScanGroup},
    {"PRIORITYSCAN_K6K",           modvalScanGroups::ValidateScanGroup},
    {"DUALPRIORITYSCAN_K6K",       modvalScanGroups::ValidateScanGroup},
    {"SCANDEFAULTTXCHANNEL_K6K",   modvalScanGroups::ValidateScanGroup},
    {"OFFHOOKSCAN_K6K",            modvalScanGroups::ValidateScanGroup},
    {"SUBAUDSCANPRIORITY_K6K",     modvalScanGroups::ValidateScanGroup},
    {"CAPTUREDCHANPRISAMPLETIME_K6K", modvalScanGroups::ValidateScanGroup},
    {"GROUPTYPE_K6K",              modvalScanGroups::ValidateScanGroup},
    {"SCANINCLCURRENTCHAN_K6K",    modvalScanGroups::ValidateScanGroup},
    {"SCANGROUPDISPLAYINDICATOR_K6K", modvalScanGroups::ValidateScanGroup},
    {"SCANTXCHANNELSELECT_K6K",    modvalScanGroups::ValidateScanGroup},
    {"GROUPID_K6K",                modvalScanGroups::ValidateGroupID},
    {"GROUPCHANNELUI_K6K",         modvalScanGroups::UpdateGroupMemberRefs},
    {"FILTEREDSCANGROUPCHANNELMEMBERID", modvalScanGroups::UpdateGroupMemberRefs},
    {"CURRENTSCANGROUPNR",         modvalScanGroups::ValidateCurrentScanGroup},
    // networks and their systems
    {"NETWORKID",                  ValidateNetworkID},
    {"CURRENTNETWORKNR",           SwitchesAlone},
    {"SIGNALLINGTYPE",             OnCurrentNetwork<ValidateSignallingType>},
    {"NETWORKSIGNALLINGID",        OnCurrentNetwork<ValidateSignallingID>},
    {"SIGNALLINGONPTTPRESS_K6K",   OnCurrentNetwork<ValidateSignallingOnPTTPress>},
    {"SIGNALLINGONPTTRELEASE_K6K", OnCurrentNetwork<ValidateSignallingOnPTTRelease>},
    {"AUTOACKTYPE",                OnCurrentNetwork<ValidateAutoAckType>},
    {"CALLMUTE",                   OnCurrentNetwork<ValidateCallMute>},
    {"HOOKSWITCHMONITOROVERRIDES_K6K", OnCurrentNetwork<ValidateHookswitchMonitor>},
    {"MONITOROVERRIDES_K6K",       OnCurrentNetwork<ValidateMonitorOverrides>},
    {"GAPPERIOD",                  ValidateGapPeriod},
    {"TONEPERIOD",                 OnChangeTonePeriod},
    {"DTMFINTERTONEGAP",           OnChangeDTMFGapPeriod},
    {"DTMFSTANDARDTONEPERIOD",     ValidateDTMFTonePeriod},
    {"INVALIDCALLRESET_K6K",       ValidateInvalidCallReset},
    {"RXSEQONEMONITORON",          OnCurrentNetwork<SwitchesAlone>},
    {"RXSEQTWOMONITORON",          OnCurrentNetwork<ValidateSequenceTwoMonitor>},
    {"EXPECTACK",                  OnCurrentNetwork<SwitchesAlone>},
    {"TONEBLANKINGTIMER",          OnCurrentNetwork<SwitchesAlone>},
    {"TXDURATIONTIMER",            OnCurrentNetwork<ValidateTxDuration>},
    {"REVERSETONEBURSTDURATION_K6K", OnCurrentNetwork<SwitchesAlone>},
    {"AUTOOVERBEEP",               OnCurrentNetwork<ValidateAutoOverBeep>},
    {"AUTOQUIETTIME_K6K",          OnCurrentNetwork<SwitchesAlone>},
    {"HOOKSWITCHMONITOR_K6K",      OnCurrentNetwork<SwitchesAlone>},
    {"SEQUENCE1ALERTTYPE",         OnCurrentNetwork<ValidateAlertType>},
    {"SEQUENCE2ALERTTYPE",         OnCurrentNetwork<ValidateAlertType>},
    {"GROUPCALLALERTTYPE",         OnCurrentNetwork<ValidateAlertType>},
    {"ALLCALLALERTTYPE",           OnCurrentNetwork<ValidateAlertType>},
    {"PRIORITYCALLALERTTYPE",      OnCurrentNetwork<ValidateAlertType>},
    {"EMERGENCYCALLALERTTYPE",     OnCurrentNetwork<ValidateAlertType>},
    {"DEFERREDCALLING_K6K",        OnCurrentNetwork<ValidateDeferredCalling>},
    {"CWIDENABLED",                OnCurrentNetwork<SwitchesAlone>},
    {"CURRENTSELCALLNUMBER",       modvalBursts::ValidateCurrentSelcallNumber},
    {"SIGNALSYSTEMID_K6K",         modvalSelcall::ValidateSelcallID},
    {"RXFORMAT_K6K",               modvalSelcall::ValidateRxFormat6000},
    {"TXFORMAT_K6K",               modvalSelcall::ValidateTxFormat},
    {"TONESET",                    modvalToneSets::ValidateToneSets},
    {"GROUPTONE",                  modvalSelcall::ValidateGroupTone},
    {"REPEATTONE",                 modvalSelcall::ValidateRepeatTone},
    {"BASEDONTONESET",             modvalToneSets::ValidateBasedOnToneSet},
    {"CUSTOMFREQUENCIES0",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIES1",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIES2",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIES3",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIES4",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIES5",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIES6",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIES7",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIES8",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIES9",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIESA",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIESB",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIESC",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIESD",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIESE",         modvalToneSets::ValidateCustomFrequencies},
    {"CUSTOMFREQUENCIESF",         modvalToneSets::ValidateCustomFrequencies},
    {"CONTROLSTATUSTYPE",          modvalControlStatus::ValidateControlStatusType},
    {"THIRDTONERESET_K6K",         modvalSelcall::ValidateThirdToneReset},
    {"RXDECODESEQ1_K6K",           modvalSelcall::ValidateRxDecodeRMRSeq6000},
    {"RXDECODESEQ2_K6K",           modvalSelcall::ValidateRxDecodeRMRSeq6000},
    {"RMRBURST_K6K",               modvalSelcall::ValidateRxDecodeRMRSeq6000},
    {"GROUPFORMAT",                modvalSelcall::ValidateGroupFormat},
    {"FREEFORMBURSTB",             modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORMBURSTR1",            modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORMBURSTR2",            modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORMBURSTR3",            modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORMGAP1",               modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORMGAP2",               modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORMGAP3",               modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORMGAP4",               modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORMSTATUS",             modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORM2DIGITSTATUS",       modvalFreeFormat::ValidateFreeFormatBurst},
    {"FREEFORMSEQUENCE5",          modvalSelcall::ValidateANISequence},
    {"BURSTSEQUENCE0_K6K",         modvalBursts::ValidateBurstSequence},
    {"BURSTSEQUENCE1_K6K",         modvalBursts::ValidateBurstSequence},
    {"BURSTSEQUENCE2_K6K",         modvalBursts::ValidateBurstSequence},
    {"BURSTSEQUENCE3_K6K",         modvalBursts::ValidateBurstSequence},
    {"BURSTSEQUENCE4_K6K",         modvalBursts::ValidateBurstSequence},
    {"BURSTSEQUENCE5_K6K",         modvalBursts::ValidateBurstSequence},
    {"CURRENTDTMFNR",              modvalDTMF::ValidateCurrentDTMF},
    {"DTMFPRESETSEQUENCE",         modvalDTMF::ValidatePresetSequence},
    {"DTMFEMERGSEQUENCE",          modvalDTMF::ValidateDTMFSequence},
    {"DTMFANISEQUENCE",            modvalDTMF::ValidateDTMFSequence},
    {"DTMFNETWORKSEQUENCE1",       modvalDTMF::ValidateDTMFSequence},
    {"DTMFNETWORKSEQUENCE2",       modvalDTMF::ValidateDTMFSequence},
    {"DTMFNETWORKSEQUENCE3",       modvalDTMF::ValidateDTMFSequence},
    {"DTMFNETWORKSEQUENCE4",       modvalDTMF::ValidateDTMFSequence},
    {"SIBTENABLED_K6K",            OnCurrentNetwork<modvalSIBT::ValidateEnableDisableSIBT>},
    {"T99TABLEFORMAT_K6K",         modvalType99::OnChangeTableFormat},
    {"T99CUSTOM_K6K",              SwitchesAlone},
    {"T99MINFIRSTTONEPERIOD_K6K",  modvalType99::ValidateFirstTonePeriodMin},
    {"T99MAXFIRSTTONEPERIOD_K6K",  modvalType99::ValidateFirstTonePeriodMax},
    {"T99MINGAPPERIOD_K6K",        modvalType99::ValidateGapPeriodMin},
    {"T99MAXGAPPERIOD_K6K",        modvalType99::ValidateGapPeriodMax},
    {"T99MINSECONDTONEPERIOD_K6K", modvalType99::ValidateSecondTonePeriodMin},
    {"T99MAXSECONDTONEPERIOD_K6K", modvalType99::ValidateSecondTonePeriodMax},
    {"T99MINALLCALLTONEPERIOD_K6K", modvalType99::ValidateAllCallTonePeriodMin},
    {"T99MAXALLCALLTONEPERIOD_K6K", modvalType99::ValidateAllCallTonePeriodMax},
    {"T99CUSTOMTONEA_K6K",         modvalType99::ValidateCustomTone},
    {"T99CUSTOMTONEB_K6K",         modvalType99::ValidateCustomTone},
    {"T99CUSTOMTONEC_K6K",         modvalType99::ValidateCustomTone},
    {"T99CUSTOMTONED_K6K",         modvalType99::ValidateCustomTone},
    {"MDC1200RADIOIDDERIVED",      ValidateMDC1200Identity},
    {"MDC1200ANISEQUENCE",         ValidateMDC1200Identity},
    {"MDC1200EMERGENCYSEQUENCE",   ValidateMDC1200Identity},
    // emergency
    {"EMERGENCYENABLED",           OnCurrentNetwork<modvalEmergency::ValidateEmergencyEnabled>},
    {"EMSIGNALLINGTYPE",           OnCurrentNetwork<SwitchesAlone>},
    {"EMCHANNEL",                  OnCurrentNetwork<modvalEmergency::ValidateEmChannel>},
    {"EMCYCLINGTYPE",              OnCurrentNetwork<modvalEmergency::ValidateEmCyclingType>},
    {"EMCYCLINGANI",               OnCurrentNetwork<modvalEmergency::ValidateEmergencyANIEnabled>},
    {"EMCYCLINGALERTTONE",         OnCurrentNetwork<SwitchesAlone>},
    {"EMCHANNELTYPE",              OnCurrentNetwork<ValidateChannelType>},
    {"EMCALLOUTTYPE",              OnCurrentNetwork<ValidateCalloutType>},
    {"EMCALLOUTNUMBER",            OnCurrentNetwork<ValidateCalloutNumber>},
    {"STEALTHFALSEPOWERDOWN",      OnCurrentNetwork<ValidateFalsePowerdown>},
    {"EMCYCLINGRXTIME",            OnCurrentNetwork<ValidateCyclingTime>},
    {"EMCYCLINGTXTIME",            OnCurrentNetwork<ValidateCyclingTime>},
    {"EMCYCLINGNUMBER",            OnCurrentNetwork<ValidateCyclingTime>},
    // data
    {"DATAPOWERUPSTATE",           ValidatePowerupState},
    {"DATAOPTIONSENABLED",         ValidateTransparentMode},
    {"DATAVHSDMODEMENABLED",       ValidateVHSDModem},
    {"DATASDMOPTIONSENABLED",      ValidateSDMOptions},
    {"DATASDMAUTOACK",             SwitchesAlone},
    {"TEXTSDMAUTOACKTRANSMISSION", SwitchesAlone},
    {"TEXTSDMAUTOACKRECEPTION",    SwitchesAlone},
    {"CCDISDMOUTPUTENABLED",       ValidateSDMOutput},
    {"MUTEONFFSKRECEIVING",        ValidateToneBlanking},
    {"DATAXON",                    ValidateXon},
    {"DATAXOFF",                   ValidateXoff},
    {"DATAIDENTITY",               ValidateDataIdentity},
    {"DATACCDIPORT",               ValidateDataPort},
    {"DATATMFLOWCONTROL",          ValidateFlowControl},
    {"DATACMFLOWCONTROL",          ValidateFlowControl},
    {"DATAHSDFLOWCONTROL",         ValidateFlowControl},
    {"DATATXBACKOFFTIMEMIN",       ValidateBackoffMinimum},
    {"DATATXBACKOFFTIMEMAX",       ValidateBackoffMaximum},
    // GPS
    {"GPSENABLED",                 ValidateGPSEnabled},
    {"GPSSERIALPORT",              ValidateGPSPort},
    {"GPSPOLLRESPONSECHANNELTYPE", ValidatePollResponseType},
    {"GPSSDMCOMPATIBILITY",        ValidateSDMFormat},
    {"GPSAVLDESPATCHERADDRESS",    ValidateDespatcherAddress},
    {"GPSMAXNUMBERCALLOUTS",       ValidateCallouts},
    {"GPSNETWORKSENDPOSONPTT",     OnCurrentNetwork<SwitchesAlone>},
    {"GPSNETWORKSENDPOSONEPTT1",   OnCurrentNetwork<SwitchesAlone>},
    {"GPSNETWORKSENDPOSONEPTT2",   OnCurrentNetwork<SwitchesAlone>},
    // programmable I/O
    {"DIGITALIODIRECTION",         modvalProgIO::ValidateDigitalIODirection},
    {"DIGITALIOACTION",            modvalProgIO::ValidateDigitalIOAction},
    {"DIGITALIOACTIVESTATE",       modvalProgIO::ValidateDigitalIOActiveState},
    {"DIGITALIOMIRROREDTO",        modvalProgIO::ValidateDigitalIOMirroredTo},
    {"IOPRTS",                     modvalProgIO::ValidateCTSRTS},
    {"IOPCTS",                     modvalProgIO::ValidateCTSRTS},
    {"AUDIOIOTAPIN",               modvalProgIO::ValidateAudioTap},
    {"AUDIOIOTAPOUT",              modvalProgIO::ValidateAudioTap},
    {"TAPINTYPE",                  modvalProgIO::ValidateAudioTap},
    {"TAPOUTTYPE",                 modvalProgIO::ValidateAudioTap},
    // function keys
    {"FUNCTIONKEY1",               modvalFunctionKeys::ValidateFunctionKeys},
    {"FUNCTIONKEY2",               modvalFunctionKeys::ValidateFunctionKeys},
    {"FUNCTIONKEY3",               modvalFunctionKeys::ValidateFunctionKeys},
    {"FUNCTIONKEY4",               modvalFunctionKeys::ValidateFunctionKeys},
    // push-to-talk
    {"PTTTRANSMISSIONTYPE1_K6K",   modvalPTT::ValidatePTTTransmissionType},
    {"PTTTRANSMISSIONTYPE2_K6K",   modvalPTT::ValidatePTTTransmissionType},
    {"PTTTRANSMISSIONTYPE3_K6K",   modvalPTT::ValidatePTTTransmissionType},
    // options of the radio
    {"BAND_K6K",                   modvalBandLimits::ValidateBand},
    {"STARTUPINLOWPOWERMODE",      ValidateLowPowerStart},
    {"SECURITYLOCKONPOWERUP",      SwitchesAlone},
    {"GROUPACTIVITYONPOWERUP_K6K", ValidateGroupActivity},
    {"KEYPADMIC",                  ValidateKeypadMic},
    {"BACKLIGHTMODE",              modvalUIPreference::ValidateBacklight},
    {"UIPRECARRIERINDICATIONTIME", ValidateCarrierDelay},
    {"GLOBALENCRYPTION",           ValidateGlobalEncryption},
};
// clang-format on
constexpr NameIndex kByUIID(kRules, &FieldRule::uiid);
}  // namespace

bool ValidateByUIID(const ValidatorRef& validator, std::string_view uiid, Variant& value, RecordNr record) {
  return Procedure("ValidateByUIID", true, [&](bool& result) {
    const FieldRule* row = kByUIID.Find(uiid);
    if (row == nullptr) return;
    FieldEdit edit{validator, row->uiid, value, record, FormWrites(validator, row->uiid)};
    result = row->rule(edit);
    if (result && edit.switchesControls) modvalSwitches::SwitchControls(edit);
    edit.writes.Follow(result);
  });
}

std::vector<std::string_view> UIIDs() {
  std::vector<std::string_view> names;
  for (const FieldRule& row : kRules) names.push_back(row.uiid);
  return names;
}
}  // namespace modvalFields
