/// \file
/// LibFile_p: block and index operations of a library, for drivers of banks.
#ifndef ZELACCESS_LIBFILE_P_H
#define ZELACCESS_LIBFILE_P_H

#include "zelaccess/Casn.h"
#include "zelaccess/LibFile.h"

namespace zel {

class BTree_i;

/// The wider layer of a library: every LibFile is one of these, which dynamic_cast returns. Sizes
/// are in 32-bit words. Block errors are thrown as `unsigned long` that holds the address. Threads
/// as in LibFile: calls on one library are made one at a time.
class ZEL_API LibFile_p : public LibFile {
 public:
  /// Closes and ends the library and nulls the handle, as LibFile::DelLibFile.
  /// \param library  the handle; null does nothing
  static void DelLibFile(LibFile_p*& library);

  /// Copies no data: libraries are handles.
  LibFile_p(LibFile_p const&) : LibFile() {}
  /// Copies nothing.
  /// \return this object
  LibFile_p& operator=(LibFile_p const&) { return *this; }

  /// Reads words of a block run. Throws on a null, zero or foreign address.
  /// \param address  block address of the run
  /// \param words    number of words
  /// \param buffer   of that many words; what is past the end of the file is read as zeros; null is
  ///                 a failed transfer
  /// \return the number of bytes read; -1, and zeros, when the transfer failed
  virtual std::int32_t ReadBlock(std::int32_t address, std::int32_t words,
                                 std::int32_t* buffer) = 0;
  /// Writes words to a block run, which is allocated first where the address is null. An allocation
  /// whose transfer failed is undone. Throws on a library open for reading, on a foreign address,
  /// and with the null address when no room is left.
  /// \param address     block address of the run, which the caller knows to be long enough; the
  ///                    null address is replaced by that of the allocated run
  /// \param words       number of words
  /// \param buffer      of that many words; null is a failed transfer, and nothing is allocated
  /// \param fileChoice  file of a new run: 1 or 2, or 0 for the one that wastes less
  /// \return the bytes written; -1 when the transfer failed
  virtual std::int32_t WriteBlock(std::int32_t& address, std::int32_t words,
                                  std::int32_t const* buffer, std::int32_t fileChoice) = 0;
  /// Frees a run. Throws on a foreign address and on blocks that are free already.
  /// \param address  block address of the run; set to the null address
  /// \param words    length of the run
  virtual void FreeBlock(std::int32_t& address, std::int32_t words) = 0;

  /// Finds a bank in the directory. The form of the key with the marker opposite to `marker` is
  /// tried first, then the form with it; a failure leaves the directory positioned by the second
  /// search. Throws a block error.
  /// \param type    type keyword; null is the empty text; more than 8 characters find nothing
  /// \param name    bank name; null is the empty text; more than 8 characters find nothing
  /// \param entry   receives the 16 data words of the bank, valid until the next operation on the
  ///                directory; unchanged when nothing is found
  /// \param marker  the form of the key that is tried last
  /// \return true when the bank was found; false also when the library is closed
  virtual bool FindBank(char const* type, char const* name, std::int32_t const*& entry,
                        bool marker) = 0;
  /// Returns whether the bank is stored under its marked key. Throws a block error.
  /// \param type  type keyword; null is the empty text
  /// \param name  bank name; null is the empty text
  /// \return true when it is
  virtual bool HasBank(char const* type, char const* name) = 0;
  /// Looks up a character ID in this library alone. Throws a block error.
  /// \param id    letters compare without regard to case; null is the empty text; more than 8
  ///              characters find nothing
  /// \param data  receives the data words, the first of which is the component number; unchanged
  ///              when nothing is found
  /// \return true when the ID was found
  virtual bool FindIdNumbers(char const* id, std::int32_t const*& data) = 0;
  /// Looks up a CAS number in this library alone. Throws a block error.
  /// \param number  the empty casn finds nothing
  /// \param data    receives the data words, the first of which is the component number; unchanged
  ///                when nothing is found
  /// \return true when the number was found
  virtual bool FindCasNumbers(casn const& number, std::int32_t const*& data) = 0;
  /// Returns the bank directory. No installed header defines the class of the library's own trees:
  /// a driver can only compare such a tree with null.
  /// \return owned by the library; null while it is closed
  virtual BTree_i* GetBankTree() = 0;
  /// Returns the tree of character IDs.
  /// \return owned by the library; null while it is closed
  virtual BTree_i* GetCharIdTree() = 0;
  /// Returns the tree of CAS numbers.
  /// \return owned by the library; null while it is closed
  virtual BTree_i* GetCasTree() = 0;
  /// Reserved; does nothing.
  /// \param first,second  may be null
  virtual void ReservedLib1(void* first, void* second) = 0;
  /// Reserved; does nothing.
  /// \param first,second  may be null
  virtual void ReservedLib2(void* first, void* second) = 0;
  /// Reserved; does nothing.
  /// \param first,second  may be null
  virtual void ReservedLib3(void* first, void* second) = 0;
  /// Returns copies of the header, block table and tree heads. They are in buffers that all
  /// libraries share, and valid until the next call in the same thread, or the end of the thread.
  /// Passing the same pointer three times returns the live header image instead. A reader's copy
  /// shows neither password nor level.
  /// \param header      receives 125 words; may be null
  /// \param blockTable  receives 125 words; may be null
  /// \param treeHeads   receives 24 words; may be null
  virtual void GetHeaderBlocks(std::int32_t const** header, std::int32_t const** blockTable,
                               std::int32_t const** treeHeads) = 0;

 protected:
  LibFile_p() = default;
  ~LibFile_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_LIBFILE_P_H
