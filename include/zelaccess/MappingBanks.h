/// \file
/// Typed interfaces of component mappings. BankTypes.h has the rules for all of them.
#ifndef ZELACCESS_MAPPINGBANKS_H
#define ZELACCESS_MAPPINGBANKS_H

#include "zelaccess/BankDef.h"

namespace zel {

/// MAPORW: mapping of a client's names to Ordwin component numbers.
///
/// Key: a text of up to 12 characters.
class ZEL_API IZelMapOrw : public IUnknown {
 public:
  /// Copies the field as it is, also when undefined; a null output is a failure.
  /// \param libnum  component number
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* libnum) = 0;
  /// Sets the field.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t libnum) = 0;

 protected:
  ~IZelMapOrw() = default;
};

/// OLI: mapping of OLI names to Ordwin component numbers.
///
/// Key: a text of up to 16 characters.
class ZEL_API IZelOli : public IUnknown {
 public:
  /// Copies the field as it is, also when undefined; a null output is a failure.
  /// \param libnum  component number
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* libnum) = 0;
  /// Sets the field.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t libnum) = 0;

 protected:
  ~IZelOli() = default;
};

/// ORWMAP: mapping of Ordwin component numbers to a client's names.
///
/// Key: one plain number, that of the component.
class ZEL_API IZelOrwMap : public IUnknown {
 public:
  /// Copies the field; a null output is a failure.
  /// \param name  name, a buffer of 13 characters
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(char* name) = 0;
  /// Sets the field; a text is cut to its buffer, and null is the empty text.
  /// \copydetails GetData
  virtual ZelStatus PutData(char const* name) = 0;

 protected:
  ~IZelOrwMap() = default;
};

}  // namespace zel

#endif  // ZELACCESS_MAPPINGBANKS_H
