# Writes the source file OUTPUT, which has the files in FOLDER as texts:
# cmake -DFOLDER=view/page -DOUTPUT=PageParts.cpp -P EmbedPage.cmake
set(source "#include \"tools/view/PageParts.h\"\n\nnamespace Tolvane::Tools {\n")
foreach(part IN ITEMS Html=page.html Style=style.css Player=player.js)
    string(REGEX MATCH "(.*)=(.*)" part "${part}")
    set(name ${CMAKE_MATCH_1})
    file(READ ${FOLDER}/${CMAKE_MATCH_2} text)
    string(APPEND source "\nconst char* const kPage${name} = R\"~~~(${text})~~~\";\n")
endforeach()
file(WRITE ${OUTPUT} "${source}\n}  // namespace Tolvane::Tools\n")
