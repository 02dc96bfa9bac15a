// What all banks have: their faces, the identifiers of all interfaces, the catalogue of types and
// the factories. Banks.h says how these are used.
#ifndef ZELACCESS_BANKDEF_H
#define ZELACCESS_BANKDEF_H

#include <cstdint>

#include "zelaccess/Export.h"
#include "zelaccess/Types.h"

namespace zel {

class LibFile;

// The root of all faces.
class ZEL_API IUnknown {
 public:
  // Gives the face with the identifier and adds a reference; kStatusNoInterface, with a null face,
  // for an identifier that the bank does not know.
  virtual ZelStatus QueryInterface(ZelIid const& id, void** face) = 0;
  // The new count.
  virtual std::int32_t AddRef() = 0;
  // The new count; at 0 the object has ended.
  virtual std::int32_t Release() = 0;

 protected:
  ~IUnknown() = default;
};

// Types of fields.
enum zelFieldTypes : std::int32_t {
  fieldInteger = 0,
  fieldReal = 1,
  fieldText = 2,
  fieldEnumerated = 3  // an integer, one of the values of the field's enumeration
};

// What a bank is, and its fields by name. Unless an operation says otherwise it returns kStatusOk.
// Field names compare without regard to case; the first row with the name and the right type
// counts.
class ZEL_API IZelBankDef : public IUnknown {
 public:
  // Buffers of 9 and 50 characters. `keyKind`: 0 component numbers, 1 plain numbers, 2 text.
  // `minKeyWords` is the shortest key that a caller may give.
  virtual ZelStatus GetBankInfo(char* type, char* description, std::int32_t* keyKind,
                                std::int32_t* keyWords, std::int32_t* minKeyWords,
                                std::int32_t* formatCount, std::int32_t* maxRecordWords,
                                std::uint8_t* listed) = 0;
  // Length in words of a record format; format 0 is the highest. kStatusFailed and 0 for a format
  // that the type does not have.
  virtual ZelStatus GetRecordLength(std::int32_t format, std::int32_t* words) = 0;
  // Ends the item: every field gets its default, which is undefined for nearly all.
  virtual ZelStatus Clear() = 0;
  // Fields of a record format; format 0 counts all.
  virtual ZelStatus GetFieldCount(std::int32_t format, std::int32_t* count) = 0;
  // The same fields in table order: arrays of that many elements. kStatusNotImplemented when the
  // type has no field table.
  virtual ZelStatus GetFieldList(std::int32_t format, char (*names)[13], char (*labels)[20],
                                 std::int32_t* types, std::int32_t* counts, char (*units)[20]) = 0;
  // Enumeration of a field of type 3; kStatusNotImplemented for any other field.
  virtual ZelStatus GetEnumCount(char const* field, std::int32_t* count) = 0;
  virtual ZelStatus GetEnumList(char const* field, char (*names)[13], std::int32_t* values,
                                std::int32_t* defaultIndex) = 0;
  // All elements of a field; the caller's array is as long as the field's count. kStatusFailed with
  // an empty text, or 0 in the first element, when there is no such field of that type.
  virtual ZelStatus GetStringField(char const* name, char* text) = 0;
  virtual ZelStatus GetDoubleField(char const* name, double* values) = 0;
  virtual ZelStatus GetIntField(char const* name, std::int32_t* values) = 0;
  // kStatusFailed, and nothing changed, when there is no such field of that type. Texts are cut.
  virtual ZelStatus SetStringField(char const* name, char const* text) = 0;
  virtual ZelStatus SetDoubleField(char const* name, double const* values) = 0;
  virtual ZelStatus SetIntField(char const* name, std::int32_t const* values) = 0;
  // Where the item came from: "library:bank", or "Multiple" after a search that found it in several
  // places. Buffer of 260 characters. `isProtected`: one of the libraries was password-locked.
  virtual ZelStatus GetSource(char* text, std::uint8_t* isProtected) = 0;
  // One byte per bank of the last search over pairs: the item had data there. The caller knows the
  // number; nothing is written when there was no such search.
  virtual ZelStatus GetSourceFlags(std::uint8_t* flags) = 0;
  // Names of the banks that this item refers to, by type keyword; only PSRK has any.
  virtual ZelStatus SetRefBankName(char const* type, char const* name) = 0;
  virtual ZelStatus GetRefBankName(char const* type, char* name) = 0;

 protected:
  ~IZelBankDef() = default;
};

// The traffic between a bank's fields and a data block, for drivers of banks. kStatusNotImplemented
// where the type does not have the operation.
class ZEL_API IZelBankIO : public IUnknown {
 public:
  // `pairRule`, how the parts of a key are ordered: 0 as given; 1 sorted, and no field changes;
  // 2 sorted, and SwapPair turns the item round when that exchanged the parts; 3 as given, (i, j)
  // and (j, i) being two items. `fileResident` is 1 where ReadFromFile and WriteToFile take the
  // place of ReadBlock and WriteBlock. The rest is as in GetBankInfo.
  virtual ZelStatus GetBlockInfo(char* type, std::int32_t* keyKind, std::int32_t* keyWords,
                                 std::int32_t* minKeyWords, std::int32_t* formatCount,
                                 std::int32_t* maxRecordWords, std::int32_t* pairRule,
                                 std::int32_t* fileResident) = 0;
  virtual ZelStatus GetRecordLength(std::int32_t format, std::int32_t* words) = 0;
  virtual ZelStatus Clear() = 0;
  // Fills the fields from a block of the format's length; fields of later formats stay as they are.
  // kStatusFailed, and nothing touched, for a format that the type does not have.
  virtual ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) = 0;
  virtual ZelStatus ReadFromFile(std::int32_t const* block, LibFile* library) = 0;
  // Fills a block of the format's length; words that no field has become 0.
  virtual ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) = 0;
  virtual ZelStatus WriteToFile(std::int32_t* block, LibFile* library) = 0;
  virtual ZelStatus ReservedIO(void* first, void* second) = 0;
  // Derives what the item's data imply.
  virtual ZelStatus Complete() = 0;
  // Turns an item of an asymmetric pair round; its own inverse.
  virtual ZelStatus SwapPair() = 0;
  // Where the item came from: the library's name, a colon, the bank's name, without trailing
  // blanks.
  virtual ZelStatus SetSource(LibFile* library, char const* bankName, std::uint8_t isProtected) = 0;
  // What a search over `count` banks found in each. Two or more make the source "Multiple", none
  // makes it empty, one leaves it. Throws std::bad_alloc, and changes nothing, when memory is
  // short.
  virtual ZelStatus SetSourceList(std::int32_t count, std::uint8_t const* found,
                                  std::uint8_t const* isProtected) = 0;

 protected:
  ~IZelBankIO() = default;
};

// A self-test that no bank has: kStatusNotImplemented.
class ZEL_API IZelBankTest : public IUnknown {
 public:
  virtual ZelStatus SelfTest() = 0;

 protected:
  ~IZelBankTest() = default;
};

// --- identifiers ---------------------------------------------------------------------------------

inline constexpr ZelIid IID_IUnknown = {
    0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// Read these from the library at run time; do not copy their values.
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

// --- the catalogue -------------------------------------------------------------------------------

// Number of bank types.
ZEL_API long GetBankTypeCount();
// The first `count` type keywords; fields beyond the last type become empty. A null list takes
// none.
ZEL_API void GetBankTypeList(long count, char (*list)[9]);
// Types that banks of a type refer to by bank name: 0, 1 or 2; 0 for an unknown keyword.
ZEL_API long GetRefBankTypeCount(char const* keyword);
// At most `count` of them; fields that are not filled stay as they were.
ZEL_API void GetRefBankTypeList(char const* keyword, long count, char (*list)[9]);

// An empty bank of a type, in any case of letters; null for an unknown keyword, and when memory is
// short. The caller owns one reference.
ZEL_API IZelBankDef* NewBank(char const* keyword);

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

}  // namespace zel

#endif  // ZELACCESS_BANKDEF_H
