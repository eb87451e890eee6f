# QScintilla for Qt 6 from the distribution (Debian: libqscintilla2-qt6-dev): the
# header folder that holds Qsci/ and the library libqscintilla2_qt6, as the imported
# target QScintilla::QScintilla.
find_path(QScintilla_INCLUDE_DIR Qsci/qsciscintilla.h PATH_SUFFIXES qt6)
find_library(QScintilla_LIBRARY NAMES qscintilla2_qt6)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(QScintilla REQUIRED_VARS QScintilla_LIBRARY QScintilla_INCLUDE_DIR)

if(QScintilla_FOUND AND NOT TARGET QScintilla::QScintilla)
  add_library(QScintilla::QScintilla UNKNOWN IMPORTED)
  set_target_properties(QScintilla::QScintilla PROPERTIES
    IMPORTED_LOCATION ${QScintilla_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${QScintilla_INCLUDE_DIR}
    INTERFACE_LINK_LIBRARIES "Qt6::Widgets;Qt6::PrintSupport")
endif()
mark_as_advanced(QScintilla_INCLUDE_DIR QScintilla_LIBRARY)
