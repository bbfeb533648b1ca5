#pragma once

#include <memory>
#include <string_view>

#include "host/Iprovider.h"
#include "host/IvalidatorHost.h"

class Itier;

/// Judges edits before they are kept. Implemented by the tier. True: the value or action may stand.
/// False: it may not, and the user has already been told why. While no `Validator` is set, or
/// when the tier is gone, every operation but EnterFocusByUIID, Validator and Initialize fails with error
/// 9001. UIIDs, grid and form
/// names ignore case. For a field of a single-record table the record is 1.
class ItierValidator {
 public:
  virtual ~ItierValidator() = default;
  /// Whether a record may be added to the grid (a grid name or a table number); adds what comes with it.
  virtual Status AddRecord(std::string_view gridName, std::shared_ptr<Iprovider> provider, Boolean& out) = 0;
  /// Whether the record may be deleted; clears what refers to it. What was cleared before a question is
  /// answered No stays cleared.
  virtual Status DeleteRecord(std::string_view gridName, RecordNr record, std::shared_ptr<Iprovider> provider,
                              Boolean& out) = 0;
  /// No trigger is known: always false.
  virtual Status ExecuteByTriggerID(std::string_view triggerId, Boolean& out) = 0;
  /// Whether the form may be left; with `refresh` the form's grid is reloaded. An unknown form may.
  virtual Status FormValidationByFormName(std::string_view formName, Boolean refresh, Boolean& out) = 0;
  /// Whether the control may be edited now.
  virtual Status GetEnabledStatebyUIID(std::string_view uiid, RecordNr record, Boolean& out) = 0;
  /// Whether the form may be opened: always true.
  virtual Status PermissionToOpenFormByFormName(std::string_view formName, Boolean& out) = 0;
  /// Whether the current personality may be programmed into the radio that is connected.
  virtual Status RunPreProgramValidation(Boolean& out) = 0;
  /// Whether the current personality may be saved.
  virtual Status RunFinalValidation(Boolean& out) = 0;
  /// Whether the value may be kept in the record. A rule may rewrite `value`: what it holds after true is
  /// what the host stores. It may have changed, refreshed and enabled other fields. A UIID without a
  /// rule is true.
  virtual Status ValidateByUIID(std::string_view uiid, Variant& value, RecordNr record, Boolean& out) = 0;
  /// Always true.
  virtual Status ExitFocusByUIID(std::string_view uiid, const Variant& value, RecordNr record,
                                 Boolean& out) = 0;
  /// Always false.
  virtual Status EnterFocusByUIID(std::string_view uiid, const Variant& value, RecordNr record,
                                  Boolean& out) = 0;
  virtual Status Validator(std::shared_ptr<IvalidatorHost>& out) = 0;
  virtual Status SetValidator(std::shared_ptr<IvalidatorHost> host) = 0;
  /// Binds the object to its tier and host. Called by the tier.
  virtual Status Initialize(Itier* tier, std::shared_ptr<IvalidatorHost> host) = 0;
};
