/// \file
/// What all banks have: their common interfaces, the identifiers of all interfaces, the catalogue
/// of types and the factories. Banks.h says how these are used.
#ifndef ZELACCESS_BANKDEF_H
#define ZELACCESS_BANKDEF_H

#include <cstdint>

#include "zelaccess/Export.h"
#include "zelaccess/Types.h"

namespace zel {

class LibFile;

/// The root of all interfaces of a bank. Threads and null pointers as in Banks.h.
class ZEL_API IUnknown {
 public:
  /// Returns another interface of the object and adds a reference.
  /// \param id    identifier of the interface
  /// \param face  receives the interface, which the caller ends with Release; null for an unknown
  ///              identifier; a null pointer returns kStatusNoInterface
  /// \return kStatusOk; kStatusNoInterface for an identifier that the bank does not know
  virtual ZelStatus QueryInterface(ZelIid const& id, void** face) = 0;
  /// Adds a reference.
  /// \return the new count
  virtual std::int32_t AddRef() = 0;
  /// Drops a reference.
  /// \return the new count; at 0 the object has ended
  virtual std::int32_t Release() = 0;

 protected:
  ~IUnknown() = default;
};

/// Types of fields.
enum zelFieldTypes : std::int32_t {
  fieldInteger = 0,    ///< 32-bit integers.
  fieldReal = 1,       ///< Doubles.
  fieldText = 2,       ///< A text.
  fieldEnumerated = 3  ///< An integer, one of the values of the field's enumeration.
};

/// What a bank is, and its fields by name. Unless an operation says otherwise it returns kStatusOk,
/// or kStatusFailed where all its outputs are null. Field names compare without regard to case; the
/// first row with the name and the right type counts. Threads and null pointers as in Banks.h.
class ZEL_API IZelBankDef : public IUnknown {
 public:
  /// Reports what the type is.
  /// \param type            buffer of 9 characters for the type keyword; may be null
  /// \param description     buffer of 50 characters; may be null
  /// \param keyKind         receives 0 for component numbers, 1 for plain numbers, 2 for text; may
  ///                        be null
  /// \param keyWords        receives the words of a key; may be null
  /// \param minKeyWords     receives the length of the shortest key that a caller may give; may be
  ///                        null
  /// \param formatCount     receives the number of record formats; may be null
  /// \param maxRecordWords  receives the words of the longest record; may be null
  /// \param listed          receives 1 for types that are listed to users, else 0; may be null
  /// \return kStatusOk; kStatusFailed where all outputs are null
  virtual ZelStatus GetBankInfo(char* type, char* description, std::int32_t* keyKind,
                                std::int32_t* keyWords, std::int32_t* minKeyWords,
                                std::int32_t* formatCount, std::int32_t* maxRecordWords,
                                std::uint8_t* listed) = 0;
  /// Reports the length of a record format.
  /// \param format  format from 1; 0 is the highest
  /// \param words   receives the length in words, 0 on failure; null is a failure
  /// \return kStatusFailed for a format that the type does not have
  virtual ZelStatus GetRecordLength(std::int32_t format, std::int32_t* words) = 0;
  /// Clears the item: sets every field to its default, which is undefined for nearly all fields.
  /// \return kStatusOk
  virtual ZelStatus Clear() = 0;
  /// Reports the number of fields of a record format.
  /// \param format  format from 1; 0 counts all fields
  /// \param count   receives the number; null is a failure
  /// \return kStatusOk
  virtual ZelStatus GetFieldCount(std::int32_t format, std::int32_t* count) = 0;
  /// Lists the fields that GetFieldCount counts, in table order, in arrays with an element for
  /// each.
  /// \param format  format from 1; 0 lists all fields
  /// \param names   receives the names; may be null
  /// \param labels  receives texts for people; may be null
  /// \param types   receives the types, zelFieldTypes; may be null
  /// \param counts  receives the numbers of elements; for a text its buffer with the terminator;
  ///                may be null
  /// \param units   receives the classes of unit in lower case, "" for none; may be null
  /// \return kStatusNotImplemented when the type has no field table
  virtual ZelStatus GetFieldList(std::int32_t format, char (*names)[13], char (*labels)[20],
                                 std::int32_t* types, std::int32_t* counts, char (*units)[20]) = 0;
  /// Reports the number of values of an enumerated field.
  /// \param field  name of the field; null is the empty text
  /// \param count  receives the number; null is a failure
  /// \return kStatusNotImplemented for a field of another type
  virtual ZelStatus GetEnumCount(char const* field, std::int32_t* count) = 0;
  /// Lists the values of an enumerated field, in arrays of as many elements as GetEnumCount
  /// reports.
  /// \param field         name of the field; null is the empty text
  /// \param names         receives the names; may be null
  /// \param values        receives the values; may be null
  /// \param defaultIndex  receives the index of the default; may be null
  /// \return kStatusNotImplemented for a field of another type
  virtual ZelStatus GetEnumList(char const* field, char (*names)[13], std::int32_t* values,
                                std::int32_t* defaultIndex) = 0;
  /// Copies a field of type fieldText.
  /// \param name  name of the field; null is the empty text
  /// \param text  buffer as long as the field's count; empty on failure; null is a failure
  /// \return kStatusFailed when there is no such field of that type
  virtual ZelStatus GetStringField(char const* name, char* text) = 0;
  /// Copies all elements of a field of type fieldReal.
  /// \param name    name of the field; null is the empty text
  /// \param values  array as long as the field's count, in the internal units of its class; 0 in
  ///                the first element on failure; null is a failure
  /// \return kStatusFailed when there is no such field of that type
  virtual ZelStatus GetDoubleField(char const* name, double* values) = 0;
  /// Copies all elements of a field of type fieldInteger or fieldEnumerated.
  /// \param name    name of the field; null is the empty text
  /// \param values  array as long as the field's count; 0 in the first element on failure; null is
  ///                a failure
  /// \return kStatusFailed when there is no such field of that type
  virtual ZelStatus GetIntField(char const* name, std::int32_t* values) = 0;
  /// Sets a field of type fieldText.
  /// \param name  name of the field; null is the empty text
  /// \param text  cut to the field's length; null is the empty text
  /// \return kStatusFailed, and nothing changed, when there is no such field of that type
  virtual ZelStatus SetStringField(char const* name, char const* text) = 0;
  /// Sets all elements of a field of type fieldReal.
  /// \param name    name of the field; null is the empty text
  /// \param values  array as long as the field's count; null is a failure
  /// \return kStatusFailed, and nothing changed, when there is no such field of that type
  virtual ZelStatus SetDoubleField(char const* name, double const* values) = 0;
  /// Sets all elements of a field of type fieldInteger or fieldEnumerated.
  /// \param name    name of the field; null is the empty text
  /// \param values  array as long as the field's count; null is a failure
  /// \return kStatusFailed, and nothing changed, when there is no such field of that type
  virtual ZelStatus SetIntField(char const* name, std::int32_t const* values) = 0;
  /// Reports where the item came from.
  /// \param text         buffer of 260 characters: "library:bank", or "Multiple" after a search
  ///                     that found it in several places; may be null
  /// \param isProtected  receives 1 when one of the libraries was password-locked, else 0; may be
  ///                     null
  /// \return kStatusOk; kStatusFailed where both are null
  virtual ZelStatus GetSource(char* text, std::uint8_t* isProtected) = 0;
  /// Reports in which banks of the last search over pairs (LibSearch) the item had data.
  /// \param flags  one byte for each bank that was searched, whose number the caller knows; nothing
  ///               is written without such a search; null is a failure
  /// \return kStatusOk
  virtual ZelStatus GetSourceFlags(std::uint8_t* flags) = 0;
  /// Sets the name of a bank that this item refers to; only PSRK refers to any.
  /// \param type  type keyword; null is the empty text; another type is ignored
  /// \param name  bank name, cut to 8 characters; null is the empty text
  /// \return kStatusOk
  virtual ZelStatus SetRefBankName(char const* type, char const* name) = 0;
  /// Copies the name of a bank that this item refers to; only PSRK refers to any.
  /// \param type  type keyword; null is the empty text
  /// \param name  buffer of 9 characters, empty for a type that the item does not refer to; null is
  ///              a failure
  /// \return kStatusOk
  virtual ZelStatus GetRefBankName(char const* type, char* name) = 0;

 protected:
  ~IZelBankDef() = default;
};

/// The transfer between a bank's fields and a data block, for drivers of banks. An operation that
/// the type does not have returns kStatusNotImplemented. Threads and null pointers as in Banks.h.
class ZEL_API IZelBankIO : public IUnknown {
 public:
  /// Reports how keys and records of the type are stored.
  /// \param type            buffer of 9 characters for the type keyword; may be null
  /// \param keyKind         receives 0 for component numbers, 1 for plain numbers, 2 for text; may
  ///                        be null
  /// \param keyWords        receives the words of a key; may be null
  /// \param minKeyWords     receives the length of the shortest key that a caller may give; may be
  ///                        null
  /// \param formatCount     receives the number of record formats; may be null
  /// \param maxRecordWords  receives the words of the longest record; may be null
  /// \param pairRule        receives how the parts of a key are ordered: 0 as given; 1 sorted, and
  ///                        no field changes; 2 sorted, and SwapPair swaps the item when that
  ///                        exchanged the parts; 3 as given, (i, j) and (j, i) being two items; may
  ///                        be null
  /// \param fileResident    receives 1 where ReadFromFile and WriteToFile replace ReadBlock and
  ///                        WriteBlock, else 0; may be null
  /// \return kStatusOk; kStatusFailed where all outputs are null
  virtual ZelStatus GetBlockInfo(char* type, std::int32_t* keyKind, std::int32_t* keyWords,
                                 std::int32_t* minKeyWords, std::int32_t* formatCount,
                                 std::int32_t* maxRecordWords, std::int32_t* pairRule,
                                 std::int32_t* fileResident) = 0;
  /// Reports the length of a record format, as IZelBankDef::GetRecordLength.
  /// \param format  format from 1; 0 is the highest
  /// \param words   receives the length in words, 0 on failure; null is a failure
  /// \return kStatusFailed for a format that the type does not have
  virtual ZelStatus GetRecordLength(std::int32_t format, std::int32_t* words) = 0;
  /// Clears the item, as IZelBankDef::Clear does.
  /// \return kStatusOk
  virtual ZelStatus Clear() = 0;
  /// Fills the fields from a block. Fields of later formats stay as they are.
  /// \param block   a block of the format's length; null is a failure
  /// \param format  format from 1
  /// \return kStatusFailed, and nothing changed, for a format that the type does not have
  virtual ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) = 0;
  /// Fills the fields from the blocks that an entry leads to. Throws a block error.
  /// \param block    data word of the entry; null is a failure
  /// \param library  an open library; null is a failure
  /// \return kStatusNotImplemented for a type whose records are in its entries
  virtual ZelStatus ReadFromFile(std::int32_t const* block, LibFile* library) = 0;
  /// Fills a block from the fields. Words that belong to no field become 0.
  /// \param block   a block of the format's length; null is a failure
  /// \param format  format from 1
  /// \return kStatusFailed, and nothing changed, for a format that the type does not have
  virtual ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) = 0;
  /// Writes the fields to the blocks that an entry leads to. Throws a block error.
  /// \param block    data word of the entry, which can change; null is a failure
  /// \param library  a library open for update; null is a failure
  /// \return kStatusNotImplemented for a type whose records are in its entries
  virtual ZelStatus WriteToFile(std::int32_t* block, LibFile* library) = 0;
  /// Reserved.
  /// \param first,second  may be null
  /// \return kStatusNotImplemented
  virtual ZelStatus ReservedIO(void* first, void* second) = 0;
  /// Derives what the item's data imply.
  /// \return kStatusNotImplemented for all types except PURECOMP
  virtual ZelStatus Complete() = 0;
  /// Swaps an item of an asymmetric pair; its own inverse.
  /// \return kStatusNotImplemented for types that are not asymmetric
  virtual ZelStatus SwapPair() = 0;
  /// Sets where the item came from: the library's name, a colon, the bank's name, without trailing
  /// blanks.
  /// \param library      the library; null counts as an empty name
  /// \param bankName     bank name; null is the empty text
  /// \param isProtected  not 0 for a password-locked library
  /// \return kStatusOk
  virtual ZelStatus SetSource(LibFile* library, char const* bankName, std::uint8_t isProtected) = 0;
  /// Sets what a search found in each of its banks. Two or more make the source "Multiple", none
  /// makes it empty, one leaves it unchanged. Throws std::bad_alloc, and changes nothing, when
  /// memory is short.
  /// \param count        number of banks
  /// \param found        not 0 for a bank where something was found; null is a failure unless
  ///                     `count` is 0
  /// \param isProtected  not 0 for a password-locked library; null is a failure unless `count` is 0
  /// \return kStatusOk; kStatusFailed, and nothing changed, where an array is null
  virtual ZelStatus SetSourceList(std::int32_t count, std::uint8_t const* found,
                                  std::uint8_t const* isProtected) = 0;

 protected:
  ~IZelBankIO() = default;
};

/// A self-test, which no bank implements.
class ZEL_API IZelBankTest : public IUnknown {
 public:
  /// Does nothing.
  /// \return kStatusNotImplemented
  virtual ZelStatus SelfTest() = 0;

 protected:
  ~IZelBankTest() = default;
};

// --- identifiers ---------------------------------------------------------------------------------

/// Identifier of IUnknown.
inline constexpr ZelIid IID_IUnknown = {
    0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// \name Identifiers of interfaces
/// Read these from the library at run time; do not copy their values.
///@{

/// Identifier of the interface of the same name.
extern ZEL_API ZelIid const IID_IZelBankDef;
extern ZEL_API ZelIid const IID_IZelBankIO;

extern ZEL_API ZelIid const IID_IZelAlpha;
extern ZEL_API ZelIid const IID_IZelAzeo;
extern ZEL_API ZelIid const IID_IZelBwrs;
extern ZEL_API ZelIid const IID_IZelBwrsPure;
extern ZEL_API ZelIid const IID_IZelCostald;
extern ZEL_API ZelIid const IID_IZelGroupDes;
extern ZEL_API ZelIid const IID_IZelHenry;
extern ZEL_API ZelIid const IID_IZelHMix;
extern ZEL_API ZelIid const IID_IZelHocV;
extern ZEL_API ZelIid const IID_IZelIDimer;
extern ZEL_API ZelIid const IID_IZelIDimPure;
extern ZEL_API ZelIid const IID_IZelLkp;
extern ZEL_API ZelIid const IID_IZelMapOrw;
extern ZEL_API ZelIid const IID_IZelMargules;
extern ZEL_API ZelIid const IID_IZelMwPr;
extern ZEL_API ZelIid const IID_IZelMwSrk;
extern ZEL_API ZelIid const IID_IZelNrtl;
extern ZEL_API ZelIid const IID_IZelNrtlLL;
extern ZEL_API ZelIid const IID_IZelOctane;
extern ZEL_API ZelIid const IID_IZelOli;
extern ZEL_API ZelIid const IID_IZelPcSaft;
extern ZEL_API ZelIid const IID_IZelPcSaftPure;
extern ZEL_API ZelIid const IID_IZelPeneloux;
extern ZEL_API ZelIid const IID_IZelPpr78;
extern ZEL_API ZelIid const IID_IZelPrH;
extern ZEL_API ZelIid const IID_IZelPrM;
extern ZEL_API ZelIid const IID_IZelPrO;
extern ZEL_API ZelIid const IID_IZelPrP;
extern ZEL_API ZelIid const IID_IZelPsrk;
extern ZEL_API ZelIid const IID_IZelPureComp;
extern ZEL_API ZelIid const IID_IZelRackett;
extern ZEL_API ZelIid const IID_IZelSrkH;
extern ZEL_API ZelIid const IID_IZelSrkM;
extern ZEL_API ZelIid const IID_IZelSrkO;
extern ZEL_API ZelIid const IID_IZelSrkP;
extern ZEL_API ZelIid const IID_IZelSrkS;
extern ZEL_API ZelIid const IID_IZelOrwMap;
extern ZEL_API ZelIid const IID_IZelStruct;
extern ZEL_API ZelIid const IID_IZelUnfDort;
extern ZEL_API ZelIid const IID_IZelUnfLyng;
extern ZEL_API ZelIid const IID_IZelUnfMod;
extern ZEL_API ZelIid const IID_IZelUnfOrig;
extern ZEL_API ZelIid const IID_IZelUnfPure;
extern ZEL_API ZelIid const IID_IZelUnf2Pure;
extern ZEL_API ZelIid const IID_IZelUnifac;
extern ZEL_API ZelIid const IID_IZelUniquac;
extern ZEL_API ZelIid const IID_IZelUniquacLL;
extern ZEL_API ZelIid const IID_IZelVanLaar;
extern ZEL_API ZelIid const IID_IZelVirial;
extern ZEL_API ZelIid const IID_IZelWilson;

///@}

// --- the catalogue -------------------------------------------------------------------------------

/// \name The catalogue of types
/// For any thread at any time. Keywords compare without regard to case.
///@{

/// Returns the number of bank types.
/// \return the same number until the library is unloaded
ZEL_API long GetBankTypeCount();
/// Lists the type keywords.
/// \param count  number of buffers
/// \param list   receives the keywords; buffers beyond the last type become empty; null does
///               nothing
ZEL_API void GetBankTypeList(long count, char (*list)[9]);
/// Returns the number of types that banks of a type refer to by bank name.
/// \param keyword  type keyword; null is the empty text
/// \return 0, 1 or 2; 0 for an unknown keyword
ZEL_API long GetRefBankTypeCount(char const* keyword);
/// Lists the types that banks of a type refer to by bank name.
/// \param keyword  type keyword; null is the empty text
/// \param count    number of buffers
/// \param list     receives the keywords; buffers that are not filled stay as they were; null does
///                 nothing
ZEL_API void GetRefBankTypeList(char const* keyword, long count, char (*list)[9]);

///@}
/// \name Factories
/// The caller owns one reference, which it ends with Release. For any thread at any time.
///@{

/// Makes an empty bank of a type.
/// \param keyword  type keyword in any case of letters; null is the empty text
/// \return the bank; null for an unknown keyword, and when memory is short
ZEL_API IZelBankDef* NewBank(char const* keyword);

///@}
/// \name Factories of the types
/// The caller owns one reference, which it ends with Release. For any thread at any time.
///@{

/// Makes an empty bank of the type that the function is named after.
/// \return the bank; null when memory is short
ZEL_API IZelBankDef* NewAlpha();
ZEL_API IZelBankDef* NewAzeo();
ZEL_API IZelBankDef* NewBwrs();
ZEL_API IZelBankDef* NewBwrsPure();
ZEL_API IZelBankDef* NewCostald();
ZEL_API IZelBankDef* NewGroupDes();
ZEL_API IZelBankDef* NewHenry();
ZEL_API IZelBankDef* NewHMix();
ZEL_API IZelBankDef* NewHocV();
ZEL_API IZelBankDef* NewIDimer();
ZEL_API IZelBankDef* NewIDimPure();
ZEL_API IZelBankDef* NewLkp();
ZEL_API IZelBankDef* NewMapOrw();
ZEL_API IZelBankDef* NewMargules();
ZEL_API IZelBankDef* NewMwPr();
ZEL_API IZelBankDef* NewMwSrk();
ZEL_API IZelBankDef* NewNrtl();
ZEL_API IZelBankDef* NewNrtlLL();
ZEL_API IZelBankDef* NewOctane();
ZEL_API IZelBankDef* NewOli();
ZEL_API IZelBankDef* NewPcSaft();
ZEL_API IZelBankDef* NewPcSaftPure();
ZEL_API IZelBankDef* NewPeneloux();
ZEL_API IZelBankDef* NewPpr78();
ZEL_API IZelBankDef* NewPrH();
ZEL_API IZelBankDef* NewPrM();
ZEL_API IZelBankDef* NewPrO();
ZEL_API IZelBankDef* NewPrP();
ZEL_API IZelBankDef* NewPsrk();
ZEL_API IZelBankDef* NewPureComp();
ZEL_API IZelBankDef* NewRackett();
ZEL_API IZelBankDef* NewSrkH();
ZEL_API IZelBankDef* NewSrkM();
ZEL_API IZelBankDef* NewSrkO();
ZEL_API IZelBankDef* NewSrkP();
ZEL_API IZelBankDef* NewSrkS();
ZEL_API IZelBankDef* NewOrwMap();
ZEL_API IZelBankDef* NewStruct();
ZEL_API IZelBankDef* NewUnfDort();
ZEL_API IZelBankDef* NewUnfLyng();
ZEL_API IZelBankDef* NewUnfMod();
ZEL_API IZelBankDef* NewUnfOrig();
ZEL_API IZelBankDef* NewUnfPure();
ZEL_API IZelBankDef* NewUnf2Pure();
ZEL_API IZelBankDef* NewUnifac();
ZEL_API IZelBankDef* NewUniquac();
ZEL_API IZelBankDef* NewUniquacLL();
ZEL_API IZelBankDef* NewVanLaar();
ZEL_API IZelBankDef* NewVirial();
ZEL_API IZelBankDef* NewWilson();

///@}

}  // namespace zel

#endif  // ZELACCESS_BANKDEF_H
