! The C interface of ZelAccess for Fortran 2003: zelaccess/zel.h with ISO_C_BINDING. Written by
! scripts/make_c_declarations.py; docs/c-interface.md has an example.
module zelaccess
  use, intrinsic :: iso_c_binding
  implicit none
  public

  ! zel_statuses
  integer(c_int32_t), parameter :: ZEL_OK = 0
  integer(c_int32_t), parameter :: ZEL_FAILED = 1
  integer(c_int32_t), parameter :: ZEL_NULL_ARGUMENT = 2
  integer(c_int32_t), parameter :: ZEL_BAD_ARGUMENT = 3
  integer(c_int32_t), parameter :: ZEL_NO_MEMORY = 4
  integer(c_int32_t), parameter :: ZEL_TOO_SMALL = 5
  integer(c_int32_t), parameter :: ZEL_NO_VALUE = 6
  integer(c_int32_t), parameter :: ZEL_WRONG_TYPE = 7
  integer(c_int32_t), parameter :: ZEL_NOT_FOUND = 8
  integer(c_int32_t), parameter :: ZEL_IN_USE = 9
  integer(c_int32_t), parameter :: ZEL_CANNOT_OPEN = 10
  integer(c_int32_t), parameter :: ZEL_READ_ONLY = 11
  integer(c_int32_t), parameter :: ZEL_DAMAGED = 12
  integer(c_int32_t), parameter :: ZEL_MISSING_COMPONENT = 13
  integer(c_int32_t), parameter :: ZEL_CONFLICTING_IDENTITY = 14
  integer(c_int32_t), parameter :: ZEL_MISSING_ITEM = 15
  integer(c_int32_t), parameter :: ZEL_MISSING_BANK = 16
  integer(c_int32_t), parameter :: ZEL_MISSING_DATUM = 17
  integer(c_int32_t), parameter :: ZEL_UNKNOWN_WORD = 18
  integer(c_int32_t), parameter :: ZEL_STOPPED = 19
  ! zel_texts
  integer(c_int32_t), parameter :: ZEL_TEXT_NAME = 0
  integer(c_int32_t), parameter :: ZEL_TEXT_PATH = 1
  integer(c_int32_t), parameter :: ZEL_TEXT_DESCRIPTION = 2
  integer(c_int32_t), parameter :: ZEL_TEXT_VERSION = 3
  integer(c_int32_t), parameter :: ZEL_TEXT_MEMO = 4
  integer(c_int32_t), parameter :: ZEL_TEXT_CAS = 5
  integer(c_int32_t), parameter :: ZEL_TEXT_FORMULA = 6
  integer(c_int32_t), parameter :: ZEL_TEXT_UNIT = 7
  integer(c_int32_t), parameter :: ZEL_TEXT_SOURCE = 8
  integer(c_int32_t), parameter :: ZEL_TEXT_CITATION = 9
  integer(c_int32_t), parameter :: ZEL_TEXT_DOI = 10
  integer(c_int32_t), parameter :: ZEL_TEXT_EQUATION = 11
  integer(c_int32_t), parameter :: ZEL_TEXT_LABEL = 12
  integer(c_int32_t), parameter :: ZEL_TEXT_MEANING = 13
  integer(c_int32_t), parameter :: ZEL_TEXT_VALUE = 14
  ! zel_cells
  integer(c_int32_t), parameter :: ZEL_CELL_EMPTY = 0
  integer(c_int32_t), parameter :: ZEL_CELL_TEXT = 1
  integer(c_int32_t), parameter :: ZEL_CELL_INTEGER = 2
  integer(c_int32_t), parameter :: ZEL_CELL_NUMBER = 3
  integer(c_int32_t), parameter :: ZEL_CELL_YES_NO = 4
  ! zel_modes
  integer(c_int32_t), parameter :: ZEL_READ = 0
  integer(c_int32_t), parameter :: ZEL_UPDATE = 1
  ! zel_writes
  integer(c_int32_t), parameter :: ZEL_WRITES_PLAIN = 0
  integer(c_int32_t), parameter :: ZEL_WRITES_MARKED = 1
  integer(c_int32_t), parameter :: ZEL_WRITES_HELD = 2
  ! zel_unclean
  integer(c_int32_t), parameter :: ZEL_UNCLEAN_IGNORED = 0
  integer(c_int32_t), parameter :: ZEL_UNCLEAN_REFUSED = 1
  integer(c_int32_t), parameter :: ZEL_UNCLEAN_VERIFIED = 2
  ! zel_checks
  integer(c_int32_t), parameter :: ZEL_IMPORT_UNCHECKED = 0
  integer(c_int32_t), parameter :: ZEL_IMPORT_TOLD = 1
  integer(c_int32_t), parameter :: ZEL_IMPORT_CHECKED = 2
  integer(c_int32_t), parameter :: ZEL_IMPORT_STRICT = 3
  ! zel_severities
  integer(c_int32_t), parameter :: ZEL_NOTE = 0
  integer(c_int32_t), parameter :: ZEL_WARNING = 1
  integer(c_int32_t), parameter :: ZEL_DAMAGE = 2
  integer(c_int32_t), parameter :: ZEL_ERROR = 3
  ! zel_check_parts
  integer(c_int32_t), parameter :: ZEL_CHECK_STRUCTURE = 0
  integer(c_int32_t), parameter :: ZEL_CHECK_DATA = 1
  ! zel_states
  integer(c_int32_t), parameter :: ZEL_STORED = 1
  integer(c_int32_t), parameter :: ZEL_FILLED_IN = 2
  ! zel_batches
  integer(c_int32_t), parameter :: ZEL_BATCH_EXACT = 0
  integer(c_int32_t), parameter :: ZEL_BATCH_VECTOR = 1

  type, bind(c) :: zel_open_options
    integer(c_size_t) :: size = 0
    integer(c_int32_t) :: mode = 0
    integer(c_int32_t) :: writes = 0
    integer(c_int32_t) :: unclean = 0
    integer(c_int32_t) :: wait_milliseconds = 0
    type(c_ptr) :: name = c_null_ptr
    type(c_ptr) :: password = c_null_ptr
  end type zel_open_options

  type, bind(c) :: zel_library_facts
    integer(c_int32_t) :: kind = 0
    integer(c_int32_t) :: mode = 0
    integer(c_int32_t) :: password_level = 0
    integer(c_int32_t) :: is_marked = 0
    integer(c_int32_t) :: is_completed = 0
    integer(c_int32_t) :: has_foreign_journal = 0
  end type zel_library_facts

  type, bind(c) :: zel_import_counts
    integer(c_int64_t) :: components = 0
    integer(c_int64_t) :: items = 0
    integer(c_int64_t) :: banks = 0
  end type zel_import_counts

  type, bind(c) :: zel_document_facts
    integer(c_int64_t) :: banks = 0
    integer(c_int64_t) :: items = 0
    integer(c_int64_t) :: components = 0
    integer(c_int64_t) :: imports = 0
  end type zel_document_facts

  type, bind(c) :: zel_finding
    integer(c_int32_t) :: severity = 0
    type(c_ptr) :: id = c_null_ptr
    type(c_ptr) :: place = c_null_ptr
    type(c_ptr) :: datum = c_null_ptr
    type(c_ptr) :: unit = c_null_ptr
    type(c_ptr) :: text = c_null_ptr
    real(c_double) :: value = 0.0_c_double
    real(c_double) :: temperature = 0.0_c_double
  end type zel_finding

  type, bind(c) :: zel_search_options
    integer(c_size_t) :: size = 0
    type(c_ptr) :: names = c_null_ptr
    integer(c_int32_t) :: accept_identity = 0
    real(c_double) :: wait_seconds = 0.0_c_double
    type(c_ptr) :: path = c_null_ptr
    integer(c_size_t) :: path_count = 0
  end type zel_search_options

  type, bind(c) :: zel_identity
    integer(c_int32_t) :: number = 0
    integer(c_int32_t) :: reference_code = 0
    integer(c_int32_t) :: id_count = 0
    integer(c_int32_t) :: keeps_formula = 0
  end type zel_identity

  type, bind(c) :: zel_constant
    real(c_double) :: value = 0.0_c_double
    integer(c_int32_t) :: state = 0
    integer(c_int32_t) :: reference_code = 0
  end type zel_constant

  type, bind(c) :: zel_correlation
    integer(c_int32_t) :: equation = 0
    integer(c_int32_t) :: coefficient_count = 0
    real(c_double) :: coefficients(15) = 0.0_c_double
    real(c_double) :: t_min = 0.0_c_double
    real(c_double) :: t_max = 0.0_c_double
    integer(c_int32_t) :: reference_code = 0
  end type zel_correlation

  type, bind(c) :: zel_evaluation
    integer(c_size_t) :: size = 0
    type(c_ptr) :: unit = c_null_ptr
    type(c_ptr) :: temperature_unit = c_null_ptr
    integer(c_int32_t) :: order = 0
  end type zel_evaluation

  type, bind(c) :: zel_report_options
    integer(c_size_t) :: size = 0
    type(c_ptr) :: names = c_null_ptr
    type(c_ptr) :: units = c_null_ptr
    integer(c_int32_t) :: accept_identity = 0
    real(c_double) :: wait_seconds = 0.0_c_double
    type(c_ptr) :: path = c_null_ptr
    integer(c_size_t) :: path_count = 0
  end type zel_report_options

  type, bind(c) :: zel_check_options
    integer(c_size_t) :: size = 0
    type(c_ptr) :: silent = c_null_ptr
    integer(c_size_t) :: silent_count = 0
    integer(c_int32_t) :: structure_only = 0
    integer(c_int32_t) :: all_strengths = 0
  end type zel_check_options

  type, bind(c) :: zel_change_options
    integer(c_size_t) :: size = 0
    type(c_ptr) :: password = c_null_ptr
    type(c_ptr) :: names = c_null_ptr
    type(c_ptr) :: units = c_null_ptr
    type(c_ptr) :: command = c_null_ptr
    real(c_double) :: wait_seconds = 0.0_c_double
    integer(c_int32_t) :: dry_run = 0
  end type zel_change_options

  ! The size of a structure in bytes, for its member `size`.
  interface zel_size
    module procedure size_of_zel_open_options, &
        size_of_zel_search_options, &
        size_of_zel_evaluation, &
        size_of_zel_report_options, &
        size_of_zel_check_options, &
        size_of_zel_change_options
  end interface zel_size

  interface
    function zel_start() bind(c, name="zel_start") result(outcome)
      import
      integer(c_int32_t) :: outcome
    end function zel_start
    function zel_version(text, size, length) bind(c, name="zel_version") result(outcome)
      import
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_version
    function zel_reason(text, size, length) bind(c, name="zel_reason") result(outcome)
      import
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_reason
    function zel_status_name(status, text, size, length) bind(c, name="zel_status_name") &
        result(outcome)
      import
      integer(c_int32_t), value :: status
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_status_name
    function zel_convert(dimension, from, to, values, count) bind(c, name="zel_convert") &
        result(outcome)
      import
      character(kind=c_char), intent(in) :: dimension(*)
      character(kind=c_char), intent(in) :: from(*)
      character(kind=c_char), intent(in) :: to(*)
      real(c_double), intent(inout) :: values(*)
      integer(c_size_t), value :: count
      integer(c_int32_t) :: outcome
    end function zel_convert
    function zel_list_constants(table) bind(c, name="zel_list_constants") result(outcome)
      import
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_list_constants
    function zel_list_correlations(table) bind(c, name="zel_list_correlations") result(outcome)
      import
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_list_correlations
    function zel_list_bank_types(table) bind(c, name="zel_list_bank_types") result(outcome)
      import
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_list_bank_types
    function zel_list_fields(type, table) bind(c, name="zel_list_fields") result(outcome)
      import
      character(kind=c_char), intent(in) :: type(*)
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_list_fields
    function zel_list_checks(table) bind(c, name="zel_list_checks") result(outcome)
      import
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_list_checks
    function zel_table_free(table) bind(c, name="zel_table_free") result(outcome)
      import
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_table_free
    function zel_table_size(table, rows, columns) bind(c, name="zel_table_size") result(outcome)
      import
      type(c_ptr), value :: table
      integer(c_size_t), intent(inout) :: rows
      integer(c_size_t), intent(inout) :: columns
      integer(c_int32_t) :: outcome
    end function zel_table_size
    function zel_table_column(table, name, column) bind(c, name="zel_table_column") &
        result(outcome)
      import
      type(c_ptr), value :: table
      character(kind=c_char), intent(in) :: name(*)
      integer(c_size_t), intent(inout) :: column
      integer(c_int32_t) :: outcome
    end function zel_table_column
    function zel_table_heading(table, column, text, size, length) bind(c, &
        name="zel_table_heading") result(outcome)
      import
      type(c_ptr), value :: table
      integer(c_size_t), value :: column
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_table_heading
    function zel_table_unit(table, column, text, size, length) bind(c, name="zel_table_unit") &
        result(outcome)
      import
      type(c_ptr), value :: table
      integer(c_size_t), value :: column
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_table_unit
    function zel_table_kind(table, row, column, kind) bind(c, name="zel_table_kind") &
        result(outcome)
      import
      type(c_ptr), value :: table
      integer(c_size_t), value :: row
      integer(c_size_t), value :: column
      integer(c_int32_t), intent(inout) :: kind
      integer(c_int32_t) :: outcome
    end function zel_table_kind
    function zel_table_number(table, row, column, number) bind(c, name="zel_table_number") &
        result(outcome)
      import
      type(c_ptr), value :: table
      integer(c_size_t), value :: row
      integer(c_size_t), value :: column
      real(c_double), intent(inout) :: number
      integer(c_int32_t) :: outcome
    end function zel_table_number
    function zel_table_integer(table, row, column, integer) bind(c, name="zel_table_integer") &
        result(outcome)
      import
      type(c_ptr), value :: table
      integer(c_size_t), value :: row
      integer(c_size_t), value :: column
      integer(c_int64_t), intent(inout) :: integer
      integer(c_int32_t) :: outcome
    end function zel_table_integer
    function zel_table_text(table, row, column, text, size, length) bind(c, &
        name="zel_table_text") result(outcome)
      import
      type(c_ptr), value :: table
      integer(c_size_t), value :: row
      integer(c_size_t), value :: column
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_table_text
    function zel_table_numbers(table, column, values, count) bind(c, name="zel_table_numbers") &
        result(outcome)
      import
      type(c_ptr), value :: table
      integer(c_size_t), value :: column
      real(c_double), intent(inout) :: values(*)
      integer(c_size_t), value :: count
      integer(c_int32_t) :: outcome
    end function zel_table_numbers
    function zel_library_open(path, options, library) bind(c, name="zel_library_open") &
        result(outcome)
      import
      character(kind=c_char), intent(in) :: path(*)
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: library
      integer(c_int32_t) :: outcome
    end function zel_library_open
    function zel_library_create(path, kind, options, library) bind(c, &
        name="zel_library_create") result(outcome)
      import
      character(kind=c_char), intent(in) :: path(*)
      integer(c_int32_t), value :: kind
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: library
      integer(c_int32_t) :: outcome
    end function zel_library_create
    function zel_library_flush(library) bind(c, name="zel_library_flush") result(outcome)
      import
      type(c_ptr), value :: library
      integer(c_int32_t) :: outcome
    end function zel_library_flush
    function zel_library_close(library) bind(c, name="zel_library_close") result(outcome)
      import
      type(c_ptr), intent(inout) :: library
      integer(c_int32_t) :: outcome
    end function zel_library_close
    function zel_library_describe(library, facts) bind(c, name="zel_library_describe") &
        result(outcome)
      import
      type(c_ptr), value :: library
      type(zel_library_facts), intent(inout) :: facts
      integer(c_int32_t) :: outcome
    end function zel_library_describe
    function zel_library_text(library, which, text, size, length) bind(c, &
        name="zel_library_text") result(outcome)
      import
      type(c_ptr), value :: library
      integer(c_int32_t), value :: which
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_library_text
    function zel_library_set_text(library, which, text) bind(c, name="zel_library_set_text") &
        result(outcome)
      import
      type(c_ptr), value :: library
      integer(c_int32_t), value :: which
      character(kind=c_char), intent(in) :: text(*)
      integer(c_int32_t) :: outcome
    end function zel_library_set_text
    function zel_library_banks(library, table) bind(c, name="zel_library_banks") result(outcome)
      import
      type(c_ptr), value :: library
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_library_banks
    function zel_library_create_bank(library, type, name, format) bind(c, &
        name="zel_library_create_bank") result(outcome)
      import
      type(c_ptr), value :: library
      character(kind=c_char), intent(in) :: type(*)
      character(kind=c_char), intent(in) :: name(*)
      integer(c_int32_t), value :: format
      integer(c_int32_t) :: outcome
    end function zel_library_create_bank
    function zel_library_delete_bank(library, type, name) bind(c, &
        name="zel_library_delete_bank") result(outcome)
      import
      type(c_ptr), value :: library
      character(kind=c_char), intent(in) :: type(*)
      character(kind=c_char), intent(in) :: name(*)
      integer(c_int32_t) :: outcome
    end function zel_library_delete_bank
    function zel_library_import(library, path, replace, checks, counts, log) bind(c, &
        name="zel_library_import") result(outcome)
      import
      type(c_ptr), value :: library
      character(kind=c_char), intent(in) :: path(*)
      integer(c_int32_t), value :: replace
      integer(c_int32_t), value :: checks
      type(c_ptr), value :: counts
      type(c_ptr), value :: log
      integer(c_int32_t) :: outcome
    end function zel_library_import
    function zel_library_export(library, path) bind(c, name="zel_library_export") &
        result(outcome)
      import
      type(c_ptr), value :: library
      character(kind=c_char), intent(in) :: path(*)
      integer(c_int32_t) :: outcome
    end function zel_library_export
    function zel_library_export_bank(library, type, name, path) bind(c, &
        name="zel_library_export_bank") result(outcome)
      import
      type(c_ptr), value :: library
      character(kind=c_char), intent(in) :: type(*)
      character(kind=c_char), intent(in) :: name(*)
      character(kind=c_char), intent(in) :: path(*)
      integer(c_int32_t) :: outcome
    end function zel_library_export_bank
    function zel_document_describe(path, facts) bind(c, name="zel_document_describe") &
        result(outcome)
      import
      character(kind=c_char), intent(in) :: path(*)
      type(zel_document_facts), intent(inout) :: facts
      integer(c_int32_t) :: outcome
    end function zel_document_describe
    function zel_library_check(library, part, callback, user, is_sound) bind(c, &
        name="zel_library_check") result(outcome)
      import
      type(c_ptr), value :: library
      integer(c_int32_t), value :: part
      type(c_funptr), value :: callback
      type(c_ptr), value :: user
      integer(c_int32_t), intent(inout) :: is_sound
      integer(c_int32_t) :: outcome
    end function zel_library_check
    function zel_columns_open(library, type, name, columns) bind(c, name="zel_columns_open") &
        result(outcome)
      import
      type(c_ptr), value :: library
      character(kind=c_char), intent(in) :: type(*)
      character(kind=c_char), intent(in) :: name(*)
      type(c_ptr), intent(inout) :: columns
      integer(c_int32_t) :: outcome
    end function zel_columns_open
    function zel_columns_close(columns) bind(c, name="zel_columns_close") result(outcome)
      import
      type(c_ptr), intent(inout) :: columns
      integer(c_int32_t) :: outcome
    end function zel_columns_close
    function zel_columns_width(columns, field, width) bind(c, name="zel_columns_width") &
        result(outcome)
      import
      type(c_ptr), value :: columns
      character(kind=c_char), intent(in) :: field(*)
      integer(c_size_t), intent(inout) :: width
      integer(c_int32_t) :: outcome
    end function zel_columns_width
    function zel_columns_add_keys(columns, words, length) bind(c, name="zel_columns_add_keys") &
        result(outcome)
      import
      type(c_ptr), value :: columns
      type(c_ptr), value :: words
      integer(c_size_t), value :: length
      integer(c_int32_t) :: outcome
    end function zel_columns_add_keys
    function zel_columns_add_reals(columns, field, values, length) bind(c, &
        name="zel_columns_add_reals") result(outcome)
      import
      type(c_ptr), value :: columns
      character(kind=c_char), intent(in) :: field(*)
      type(c_ptr), value :: values
      integer(c_size_t), value :: length
      integer(c_int32_t) :: outcome
    end function zel_columns_add_reals
    function zel_columns_add_integers(columns, field, values, length) bind(c, &
        name="zel_columns_add_integers") result(outcome)
      import
      type(c_ptr), value :: columns
      character(kind=c_char), intent(in) :: field(*)
      type(c_ptr), value :: values
      integer(c_size_t), value :: length
      integer(c_int32_t) :: outcome
    end function zel_columns_add_integers
    function zel_columns_add_texts(columns, field, texts, length) bind(c, &
        name="zel_columns_add_texts") result(outcome)
      import
      type(c_ptr), value :: columns
      character(kind=c_char), intent(in) :: field(*)
      type(c_ptr), value :: texts
      integer(c_size_t), value :: length
      integer(c_int32_t) :: outcome
    end function zel_columns_add_texts
    function zel_columns_read(columns, rows, read) bind(c, name="zel_columns_read") &
        result(outcome)
      import
      type(c_ptr), value :: columns
      integer(c_size_t), value :: rows
      integer(c_size_t), intent(inout) :: read
      integer(c_int32_t) :: outcome
    end function zel_columns_read
    function zel_search_open(libraries, count, options, search) bind(c, &
        name="zel_search_open") result(outcome)
      import
      type(c_ptr), intent(in) :: libraries(*)
      integer(c_size_t), value :: count
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: search
      integer(c_int32_t) :: outcome
    end function zel_search_open
    function zel_search_path(table) bind(c, name="zel_search_path") result(outcome)
      import
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_search_path
    function zel_search_close(search) bind(c, name="zel_search_close") result(outcome)
      import
      type(c_ptr), intent(inout) :: search
      integer(c_int32_t) :: outcome
    end function zel_search_close
    function zel_search_components(search, table) bind(c, name="zel_search_components") &
        result(outcome)
      import
      type(c_ptr), value :: search
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_search_components
    function zel_search_component(search, word, component) bind(c, &
        name="zel_search_component") result(outcome)
      import
      type(c_ptr), value :: search
      character(kind=c_char), intent(in) :: word(*)
      type(c_ptr), intent(inout) :: component
      integer(c_int32_t) :: outcome
    end function zel_search_component
    function zel_search_pair(search, type, one, other, item) bind(c, name="zel_search_pair") &
        result(outcome)
      import
      type(c_ptr), value :: search
      character(kind=c_char), intent(in) :: type(*)
      character(kind=c_char), intent(in) :: one(*)
      character(kind=c_char), intent(in) :: other(*)
      type(c_ptr), intent(inout) :: item
      integer(c_int32_t) :: outcome
    end function zel_search_pair
    function zel_search_item(search, type, words, count, item) bind(c, name="zel_search_item") &
        result(outcome)
      import
      type(c_ptr), value :: search
      character(kind=c_char), intent(in) :: type(*)
      type(c_ptr), intent(in) :: words(*)
      integer(c_size_t), value :: count
      type(c_ptr), intent(inout) :: item
      integer(c_int32_t) :: outcome
    end function zel_search_item
    function zel_component_free(component) bind(c, name="zel_component_free") result(outcome)
      import
      type(c_ptr), intent(inout) :: component
      integer(c_int32_t) :: outcome
    end function zel_component_free
    function zel_component_identity(component, identity) bind(c, &
        name="zel_component_identity") result(outcome)
      import
      type(c_ptr), value :: component
      type(zel_identity), intent(inout) :: identity
      integer(c_int32_t) :: outcome
    end function zel_component_identity
    function zel_component_text(component, which, text, size, length) bind(c, &
        name="zel_component_text") result(outcome)
      import
      type(c_ptr), value :: component
      integer(c_int32_t), value :: which
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_component_text
    function zel_component_id(component, index, text, size, length) bind(c, &
        name="zel_component_id") result(outcome)
      import
      type(c_ptr), value :: component
      integer(c_int32_t), value :: index
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_component_id
    function zel_component_constant(component, keyword, unit, constant) bind(c, &
        name="zel_component_constant") result(outcome)
      import
      type(c_ptr), value :: component
      character(kind=c_char), intent(in) :: keyword(*)
      character(kind=c_char), intent(in) :: unit(*)
      type(zel_constant), intent(inout) :: constant
      integer(c_int32_t) :: outcome
    end function zel_component_constant
    function zel_component_constant_text(component, keyword, which, text, size, length) &
        bind(c, name="zel_component_constant_text") result(outcome)
      import
      type(c_ptr), value :: component
      character(kind=c_char), intent(in) :: keyword(*)
      integer(c_int32_t), value :: which
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_component_constant_text
    function zel_component_correlation(component, name, correlation) bind(c, &
        name="zel_component_correlation") result(outcome)
      import
      type(c_ptr), value :: component
      character(kind=c_char), intent(in) :: name(*)
      type(zel_correlation), intent(inout) :: correlation
      integer(c_int32_t) :: outcome
    end function zel_component_correlation
    function zel_component_correlation_text(component, name, which, text, size, length) &
        bind(c, name="zel_component_correlation_text") result(outcome)
      import
      type(c_ptr), value :: component
      character(kind=c_char), intent(in) :: name(*)
      integer(c_int32_t), value :: which
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_component_correlation_text
    function zel_evaluator_new(component, name, evaluation, evaluator) bind(c, &
        name="zel_evaluator_new") result(outcome)
      import
      type(c_ptr), value :: component
      character(kind=c_char), intent(in) :: name(*)
      type(c_ptr), value :: evaluation
      type(c_ptr), intent(inout) :: evaluator
      integer(c_int32_t) :: outcome
    end function zel_evaluator_new
    function zel_evaluator_free(evaluator) bind(c, name="zel_evaluator_free") result(outcome)
      import
      type(c_ptr), intent(inout) :: evaluator
      integer(c_int32_t) :: outcome
    end function zel_evaluator_free
    function zel_evaluator_unit(evaluator, text, size, length) bind(c, &
        name="zel_evaluator_unit") result(outcome)
      import
      type(c_ptr), value :: evaluator
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_evaluator_unit
    function zel_evaluator_value(evaluator, temperature, value) bind(c, &
        name="zel_evaluator_value") result(outcome)
      import
      type(c_ptr), value :: evaluator
      real(c_double), value :: temperature
      real(c_double), intent(inout) :: value
      integer(c_int32_t) :: outcome
    end function zel_evaluator_value
    function zel_evaluator_batch(evaluator, count, temperatures, values, derivatives, ranges, &
        batch) bind(c, name="zel_evaluator_batch") result(outcome)
      import
      type(c_ptr), value :: evaluator
      integer(c_size_t), value :: count
      real(c_double), intent(in) :: temperatures(*)
      type(c_ptr), value :: values
      type(c_ptr), value :: derivatives
      type(c_ptr), value :: ranges
      integer(c_int32_t), value :: batch
      integer(c_int32_t) :: outcome
    end function zel_evaluator_batch
    function zel_item_free(item) bind(c, name="zel_item_free") result(outcome)
      import
      type(c_ptr), intent(inout) :: item
      integer(c_int32_t) :: outcome
    end function zel_item_free
    function zel_item_text(item, which, text, size, length) bind(c, name="zel_item_text") &
        result(outcome)
      import
      type(c_ptr), value :: item
      integer(c_int32_t), value :: which
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_item_text
    function zel_item_fields(item, table) bind(c, name="zel_item_fields") result(outcome)
      import
      type(c_ptr), value :: item
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_item_fields
    function zel_item_value(item, field, value) bind(c, name="zel_item_value") result(outcome)
      import
      type(c_ptr), value :: item
      character(kind=c_char), intent(in) :: field(*)
      real(c_double), intent(inout) :: value
      integer(c_int32_t) :: outcome
    end function zel_item_value
    function zel_item_values(item, field, values, size, count) bind(c, name="zel_item_values") &
        result(outcome)
      import
      type(c_ptr), value :: item
      character(kind=c_char), intent(in) :: field(*)
      real(c_double), intent(inout) :: values(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: count
      integer(c_int32_t) :: outcome
    end function zel_item_values
    function zel_item_field_text(item, field, which, text, size, length) bind(c, &
        name="zel_item_field_text") result(outcome)
      import
      type(c_ptr), value :: item
      character(kind=c_char), intent(in) :: field(*)
      integer(c_int32_t), value :: which
      character(kind=c_char), intent(inout) :: text(*)
      integer(c_size_t), value :: size
      integer(c_size_t), intent(inout) :: length
      integer(c_int32_t) :: outcome
    end function zel_item_field_text
    function zel_why(libraries, count, component, datum, options, table) bind(c, &
        name="zel_why") result(outcome)
      import
      type(c_ptr), intent(in) :: libraries(*)
      integer(c_size_t), value :: count
      character(kind=c_char), intent(in) :: component(*)
      character(kind=c_char), intent(in) :: datum(*)
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_why
    function zel_data(libraries, count, components, component_count, fields, field_count, &
        with_sources, options, table) bind(c, name="zel_data") result(outcome)
      import
      type(c_ptr), intent(in) :: libraries(*)
      integer(c_size_t), value :: count
      type(c_ptr), intent(in) :: components(*)
      integer(c_size_t), value :: component_count
      type(c_ptr), intent(in) :: fields(*)
      integer(c_size_t), value :: field_count
      integer(c_int32_t), value :: with_sources
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_data
    function zel_pairs(libraries, count, type, fields, field_count, components, &
        component_count, options, table) bind(c, name="zel_pairs") result(outcome)
      import
      type(c_ptr), intent(in) :: libraries(*)
      integer(c_size_t), value :: count
      character(kind=c_char), intent(in) :: type(*)
      type(c_ptr), intent(in) :: fields(*)
      integer(c_size_t), value :: field_count
      type(c_ptr), intent(in) :: components(*)
      integer(c_size_t), value :: component_count
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_pairs
    function zel_coverage(libraries, count, type, components, component_count, options, table) &
        bind(c, name="zel_coverage") result(outcome)
      import
      type(c_ptr), intent(in) :: libraries(*)
      integer(c_size_t), value :: count
      character(kind=c_char), intent(in) :: type(*)
      type(c_ptr), intent(in) :: components(*)
      integer(c_size_t), value :: component_count
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_coverage
    function zel_check(libraries, count, check, options, table) bind(c, name="zel_check") &
        result(outcome)
      import
      type(c_ptr), intent(in) :: libraries(*)
      integer(c_size_t), value :: count
      type(c_ptr), value :: check
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_check
    function zel_change_begin(library, options, change) bind(c, name="zel_change_begin") &
        result(outcome)
      import
      character(kind=c_char), intent(in) :: library(*)
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: change
      integer(c_int32_t) :: outcome
    end function zel_change_begin
    function zel_change_create(library, options, change) bind(c, name="zel_change_create") &
        result(outcome)
      import
      character(kind=c_char), intent(in) :: library(*)
      type(c_ptr), value :: options
      type(c_ptr), intent(inout) :: change
      integer(c_int32_t) :: outcome
    end function zel_change_create
    function zel_change_edit(change, words, count, table) bind(c, name="zel_change_edit") &
        result(outcome)
      import
      type(c_ptr), value :: change
      type(c_ptr), intent(in) :: words(*)
      integer(c_size_t), value :: count
      type(c_ptr), value :: table
      integer(c_int32_t) :: outcome
    end function zel_change_edit
    function zel_change_import_document(change, path, bank, replace, checks, counts, log) &
        bind(c, name="zel_change_import_document") result(outcome)
      import
      type(c_ptr), value :: change
      character(kind=c_char), intent(in) :: path(*)
      character(kind=c_char), intent(in) :: bank(*)
      integer(c_int32_t), value :: replace
      integer(c_int32_t), value :: checks
      type(c_ptr), value :: counts
      type(c_ptr), value :: log
      integer(c_int32_t) :: outcome
    end function zel_change_import_document
    function zel_change_import_table(change, path, bank, table) bind(c, &
        name="zel_change_import_table") result(outcome)
      import
      type(c_ptr), value :: change
      character(kind=c_char), intent(in) :: path(*)
      character(kind=c_char), intent(in) :: bank(*)
      type(c_ptr), value :: table
      integer(c_int32_t) :: outcome
    end function zel_change_import_table
    function zel_change_findings(change, table) bind(c, name="zel_change_findings") &
        result(outcome)
      import
      type(c_ptr), value :: change
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_change_findings
    function zel_change_commit(change) bind(c, name="zel_change_commit") result(outcome)
      import
      type(c_ptr), intent(inout) :: change
      integer(c_int32_t) :: outcome
    end function zel_change_commit
    function zel_change_drop(change) bind(c, name="zel_change_drop") result(outcome)
      import
      type(c_ptr), intent(inout) :: change
      integer(c_int32_t) :: outcome
    end function zel_change_drop
    function zel_undo(library, options, table) bind(c, name="zel_undo") result(outcome)
      import
      character(kind=c_char), intent(in) :: library(*)
      type(c_ptr), value :: options
      type(c_ptr), value :: table
      integer(c_int32_t) :: outcome
    end function zel_undo
    function zel_history(library, table) bind(c, name="zel_history") result(outcome)
      import
      character(kind=c_char), intent(in) :: library(*)
      type(c_ptr), intent(inout) :: table
      integer(c_int32_t) :: outcome
    end function zel_history
  end interface

contains

  ! A text for C: without blanks at its end, with a null.
  pure function zel_c(text) result(c)
    character(len=*), intent(in) :: text
    character(kind=c_char, len=len_trim(text) + 1) :: c
    c = trim(text) // c_null_char
  end function zel_c

  ! The text in a buffer that C has filled: up to its null.
  pure function zel_f(buffer) result(text)
    character(kind=c_char, len=*), intent(in) :: buffer
    character(len=:), allocatable :: text
    integer :: end
    end = index(buffer, c_null_char)
    if (end == 0) end = len(buffer) + 1
    text = buffer(:end - 1)
  end function zel_f

  pure function size_of_zel_open_options(options) result(size_in_bytes)
    type(zel_open_options), intent(in) :: options
    integer(c_size_t) :: size_in_bytes
    size_in_bytes = size(transfer(options, [c_null_char]), kind=c_size_t)
  end function size_of_zel_open_options

  pure function size_of_zel_search_options(options) result(size_in_bytes)
    type(zel_search_options), intent(in) :: options
    integer(c_size_t) :: size_in_bytes
    size_in_bytes = size(transfer(options, [c_null_char]), kind=c_size_t)
  end function size_of_zel_search_options

  pure function size_of_zel_evaluation(options) result(size_in_bytes)
    type(zel_evaluation), intent(in) :: options
    integer(c_size_t) :: size_in_bytes
    size_in_bytes = size(transfer(options, [c_null_char]), kind=c_size_t)
  end function size_of_zel_evaluation

  pure function size_of_zel_report_options(options) result(size_in_bytes)
    type(zel_report_options), intent(in) :: options
    integer(c_size_t) :: size_in_bytes
    size_in_bytes = size(transfer(options, [c_null_char]), kind=c_size_t)
  end function size_of_zel_report_options

  pure function size_of_zel_check_options(options) result(size_in_bytes)
    type(zel_check_options), intent(in) :: options
    integer(c_size_t) :: size_in_bytes
    size_in_bytes = size(transfer(options, [c_null_char]), kind=c_size_t)
  end function size_of_zel_check_options

  pure function size_of_zel_change_options(options) result(size_in_bytes)
    type(zel_change_options), intent(in) :: options
    integer(c_size_t) :: size_in_bytes
    size_in_bytes = size(transfer(options, [c_null_char]), kind=c_size_t)
  end function size_of_zel_change_options
end module zelaccess
