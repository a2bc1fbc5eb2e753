# Lays the programs that read a PDF into the folder TOOLS, as links to those of this machine:
#
#   cmake -DTOOLS=desk/tools -P cmake/LinkTools.cmake
#
# What the machine does not have is left out; the program then tells where it looked. What lies
# there already and is no link was put there by hand and stays.

function(link_tool target link)
  if(NOT EXISTS "${link}" OR IS_SYMLINK "${link}")
    file(CREATE_LINK "${target}" "${link}" SYMBOLIC)
  endif()
endfunction()

foreach(tool poppler/pdftotext poppler/pdftoppm tesseract/tesseract)
  cmake_path(GET tool PARENT_PATH folder)
  cmake_path(GET tool FILENAME name)
  find_program(found NAMES ${name} NO_CACHE)
  file(MAKE_DIRECTORY "${TOOLS}/${folder}")
  if(found)
    cmake_path(GET found EXTENSION LAST_ONLY suffix)
    link_tool("${found}" "${TOOLS}/${tool}${suffix}")
  endif()
  unset(found)
endforeach()

file(GLOB english /usr/share/tesseract-ocr/*/tessdata/eng.traineddata
     /usr/share/tessdata/eng.traineddata /opt/homebrew/share/tessdata/eng.traineddata)
if(english)
  list(GET english 0 data)
  cmake_path(GET data PARENT_PATH data)
  link_tool("${data}" "${TOOLS}/tesseract/tessdata")
endif()
