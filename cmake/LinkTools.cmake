# Lays the programs that read a PDF into the folder TOOLS, as links to those of this machine:
#
#   cmake -DTOOLS=desk/tools -P cmake/LinkTools.cmake
#
# What the machine does not have is left out; the program then tells where it looked.

foreach(tool poppler/pdftotext poppler/pdftoppm tesseract/tesseract)
  cmake_path(GET tool PARENT_PATH folder)
  cmake_path(GET tool FILENAME name)
  find_program(found NAMES ${name} NO_CACHE)
  file(MAKE_DIRECTORY "${TOOLS}/${folder}")
  if(found)
    file(CREATE_LINK "${found}" "${TOOLS}/${tool}" SYMBOLIC)
  endif()
  unset(found)
endforeach()

file(GLOB english /usr/share/tesseract-ocr/*/tessdata/eng.traineddata
     /usr/share/tessdata/eng.traineddata /opt/homebrew/share/tessdata/eng.traineddata)
if(english)
  list(GET english 0 data)
  cmake_path(GET data PARENT_PATH data)
  file(CREATE_LINK "${data}" "${TOOLS}/tesseract/tessdata" SYMBOLIC)
endif()
