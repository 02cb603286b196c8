# cmake -DFROM=... -DTO=... -P LayOut.cmake: lays the delivered data out in an application folder that has no database.
# Every file is copied under another name and renamed, and the database comes last: a copy cut short is taken up again
# by the next build, and a folder with a database is its user's.
file(MAKE_DIRECTORY ${TO}/Images ${TO}/PubWiz)
# The help is the program's, whoever the folder belongs to.
foreach(name Vorlina.qch VorlinaEN.qch)
  file(COPY_FILE "${FROM}/${name}" "${TO}/${name}" ONLY_IF_DIFFERENT)
endforeach()
if(EXISTS ${TO}/Catalog.db)
  return()
endif()

function(copy_missing NAME)
  if(NOT EXISTS "${TO}/${NAME}")
    file(COPY_FILE "${FROM}/${NAME}" "${TO}/${NAME}.part")
    file(RENAME "${TO}/${NAME}.part" "${TO}/${NAME}")
  endif()
endfunction()

file(GLOB pictures RELATIVE ${FROM} ${FROM}/Images/*.jpg)
foreach(picture IN LISTS pictures)
  copy_missing("${picture}")
endforeach()
copy_missing(Catalog.db)
