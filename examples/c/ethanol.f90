! Ethanol from three libraries, in Fortran 2003: what ethanol.c does, with the module zelaccess.
program ethanol
  use zelaccess
  implicit none
  character(kind=c_char, len=10), target :: names(3)
  type(c_ptr) :: libraries(3), search, component
  character(kind=c_char, len=1024) :: text
  integer(c_size_t) :: length
  integer :: i

  call need(zel_version(text, len(text, c_size_t), length))
  print '(2a)', 'version ', zel_f(text)
  names = ['crc.lb1   ', 'perry.lb1 ', 'sample.lb1']
  call open_search()
  call need(zel_search_component(search, zel_c('ETHANOL'), component))
  call show_component()
  call show_pressures()
  call need(zel_component_free(component))
  call show_pair()
  call show_columns()
  if (zel_search_component(search, zel_c('ETHANLO'), component) /= ZEL_MISSING_COMPONENT) stop 1
  call need(zel_reason(text, len(text, c_size_t), length))
  print '(a)', zel_f(text)
  call need(zel_search_close(search))   ! no reader may have a library that is changed
  call show_edit()

contains

  ! Ends the program with the reason of a failure.
  subroutine need(status)
    integer(c_int32_t), intent(in) :: status
    integer(c_int32_t) :: copied
    if (status == ZEL_OK) return
    copied = zel_reason(text, len(text, c_size_t), length)
    print '(i0, 2a)', status, ': ', zel_f(text)
    stop 1
  end subroutine need

  ! An array of texts is one of pointers to texts with a null.
  subroutine open_search()
    character(kind=c_char, len=11), target, save :: texts(3)
    do i = 1, 3
      texts(i) = zel_c(names(i))
      libraries(i) = c_loc(texts(i)(1:1))
    end do
    search = c_null_ptr
    component = c_null_ptr
    call need(zel_search_open(libraries, 3_c_size_t, c_null_ptr, search))
  end subroutine open_search

  subroutine show_component()
    character(kind=c_char, len=80) :: name, cas, source
    type(zel_constant) :: nbp
    call need(zel_component_text(component, ZEL_TEXT_NAME, name, len(name, c_size_t), length))
    call need(zel_component_text(component, ZEL_TEXT_CAS, cas, len(cas, c_size_t), length))
    print '(3a)', zel_f(name), ' ', zel_f(cas)
    call need(zel_component_constant(component, zel_c('NBP'), zel_c('degC'), nbp))
    call need(zel_component_constant_text(component, zel_c('NBP'), ZEL_TEXT_SOURCE, source, &
        len(source, c_size_t), length))
    print '(a, f5.2, 2a)', 'boils at ', nbp%value, ' C, from ', zel_f(source)
  end subroutine show_component

  subroutine show_pressures()
    real(c_double), target :: temperatures(2), pressures(2), slopes(2)
    character(kind=c_char, len=5), target :: unit, temperature_unit
    type(zel_evaluation), target :: how
    type(c_ptr) :: pressure
    temperatures = [25.0_c_double, 78.3_c_double]
    unit = zel_c('bar')
    temperature_unit = zel_c('degC')
    how%size = zel_size(how)
    how%unit = c_loc(unit(1:1))
    how%temperature_unit = c_loc(temperature_unit(1:1))
    pressure = c_null_ptr
    call need(zel_evaluator_new(component, zel_c('VaporPressure'), c_loc(how), pressure))
    call need(zel_evaluator_batch(pressure, 2_c_size_t, temperatures, c_loc(pressures(1)), &
        c_loc(slopes(1)), c_null_ptr, ZEL_BATCH_EXACT))
    print '(f6.4, a, f6.4, a, f7.5, a, f7.5, a)', pressures(1), ' and ', pressures(2), ' bar, ', &
        slopes(1), ' and ', slopes(2), ' bar/K'
    call need(zel_evaluator_free(pressure))
  end subroutine show_pressures

  subroutine show_pair()
    type(c_ptr) :: pair
    real(c_double) :: bij
    pair = c_null_ptr
    call need(zel_search_pair(search, zel_c('NRTL'), zel_c('WATER'), zel_c('ETHANOL'), pair))
    call need(zel_item_value(pair, zel_c('bij'), bij))
    print '(a, f7.3, a)', 'bij ', bij, ' K'
    call need(zel_item_free(pair))
  end subroutine show_pair

  ! Reads the pairs of a model 16 at a time.
  subroutine show_columns()
    integer(c_int32_t), target :: keys(32)
    real(c_double), target :: alpha(16)
    real(c_double) :: total
    integer(c_size_t) :: rows, pairs
    type(c_ptr) :: library, columns
    library = c_null_ptr
    columns = c_null_ptr
    total = 0.0_c_double
    pairs = 0
    call need(zel_library_open(zel_c('sample.lb1'), c_null_ptr, library))
    call need(zel_columns_open(library, zel_c('NRTL'), zel_c('SAMPLE'), columns))
    call need(zel_columns_add_keys(columns, c_loc(keys(1)), 32_c_size_t))
    call need(zel_columns_add_reals(columns, zel_c('alphaij'), c_loc(alpha(1)), 16_c_size_t))
    do
      call need(zel_columns_read(columns, 16_c_size_t, rows))
      if (rows == 0) exit
      total = total + sum(alpha(:rows))
      pairs = pairs + rows
    end do
    print '(i0, a, f7.5)', pairs, ' pairs, mean alphaij ', total / real(pairs, c_double)
    call need(zel_columns_close(columns))
    call need(zel_library_close(library))
  end subroutine show_columns

  ! A change that is dropped at the end.
  subroutine show_edit()
    character(kind=c_char, len=12), target :: texts(2)
    type(c_ptr) :: words(2), change
    type(c_ptr), target :: rows
    integer(c_size_t) :: before, after
    real(c_double) :: old_value, new_value
    change = c_null_ptr
    rows = c_null_ptr
    texts(1) = zel_c('ETHANOL')
    texts(2) = zel_c('NBP=78.31C')
    words = [c_loc(texts(1)(1:1)), c_loc(texts(2)(1:1))]
    call need(zel_change_begin(zel_c('crc.lb1'), c_null_ptr, change))
    call need(zel_change_edit(change, words, 2_c_size_t, c_loc(rows)))
    call need(zel_table_column(rows, zel_c('old'), before))
    call need(zel_table_column(rows, zel_c('new'), after))
    call need(zel_table_number(rows, 0_c_size_t, before, old_value))
    call need(zel_table_number(rows, 0_c_size_t, after, new_value))
    print '(a, f6.2, a, f6.2, a)', 'NBP from ', old_value, ' to ', new_value, ' K'
    call need(zel_table_free(rows))
    call need(zel_change_drop(change))
  end subroutine show_edit
end program ethanol
