// LibFile_p: block and index operations of a library, for drivers of banks.
#ifndef ZELACCESS_LIBFILE_P_H
#define ZELACCESS_LIBFILE_P_H

#include "zelaccess/Casn.h"
#include "zelaccess/LibFile.h"

namespace zel {

class BTree_i;

// Sizes are in 32-bit words. Block errors are thrown as `unsigned long`, holding the address. A
// null buffer is a failed transfer: -1, and nothing is allocated.
class ZEL_API LibFile_p : public LibFile {
 public:
  static void DelLibFile(LibFile_p*& library);

  LibFile_p(LibFile_p const&) : LibFile() {}
  LibFile_p& operator=(LibFile_p const&) { return *this; }

  // Reads `words` words of the block run at `address`. Gives the bytes really read; what lies
  // behind the end of the file comes out as zeros. -1 (and zeros) when the transfer failed.
  // Throws on a null, zero or foreign address.
  virtual std::int32_t ReadBlock(std::int32_t address, std::int32_t words,
                                 std::int32_t* buffer) = 0;
  // Writes `words` words at `address`; a null address allocates a run first and is replaced by it.
  // `fileChoice` 1 or 2 picks the file, 0 the one that wastes less. The caller answers for the run
  // being long enough. Gives the bytes written, -1 when the transfer failed; an allocation whose
  // transfer failed is taken back. Throws on a library open for reading, on a foreign address, and
  // with the null address when no room is left.
  virtual std::int32_t WriteBlock(std::int32_t& address, std::int32_t words,
                                  std::int32_t const* buffer, std::int32_t fileChoice) = 0;
  // Gives the run of `words` words back and sets `address` to null. Throws on a foreign address and
  // on blocks that are free already.
  virtual void FreeBlock(std::int32_t& address, std::int32_t words) = 0;

  // Finds a bank in the directory; `entry` then points at the 16 data words, valid until the next
  // operation on the directory. The form of the key with the marker opposite to `marker` is tried
  // first, then the form with it; a failure leaves the directory positioned by the second search.
  virtual bool FindBank(char const* type, char const* name, std::int32_t const*& entry,
                        bool marker) = 0;
  // True when the bank stands under its marked key.
  virtual bool HasBank(char const* type, char const* name) = 0;
  // Look-ups by character ID and CAS number; the first data word is the component number.
  virtual bool FindIdNumbers(char const* id, std::int32_t const*& data) = 0;
  virtual bool FindCasNumbers(casn const& number, std::int32_t const*& data) = 0;
  // The library's own trees; null while it is closed. No installed header defines their class: a
  // driver can hold such a tree against null, and nothing else.
  virtual BTree_i* GetBankTree() = 0;
  virtual BTree_i* GetCharIdTree() = 0;
  virtual BTree_i* GetCasTree() = 0;
  // Reserved; do nothing.
  virtual void ReservedLib1(void* first, void* second) = 0;
  virtual void ReservedLib2(void* first, void* second) = 0;
  virtual void ReservedLib3(void* first, void* second) = 0;
  // Copies of the header (125 words), block table (125) and tree heads (24), shared by all
  // libraries and valid until the next call of the same thread, or its end. Three times the same
  // pointer instead gives the live header image. A reader's copy shows neither password nor level.
  virtual void GetHeaderBlocks(std::int32_t const** header, std::int32_t const** blockTable,
                               std::int32_t const** treeHeads) = 0;

 protected:
  LibFile_p() = default;
  ~LibFile_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_LIBFILE_P_H
