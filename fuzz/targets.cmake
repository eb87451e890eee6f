# The fuzz targets: each fuzz_<name>.cpp defines LLVMFuzzerTestOneInput, and
# corpus/<target>/ holds its seed inputs.
set(TESSARO_FUZZ_TARGETS
  fuzz_rtf_reader
  fuzz_colouring
  fuzz_workspace_file
  fuzz_section_definitions
  fuzz_struct_scan
  fuzz_settings_reader
  fuzz_handover_request
  fuzz_browser_folder
  fuzz_find_pattern)
