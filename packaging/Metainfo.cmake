# Writes the metainfo; also as a script of its own, which wants PROJECT_VERSION and writes where it is run.

# Software centres fetch the pictures from the web, and take no other address.
set(ZELMO_PAGE "" CACHE STRING "Address of the project's page, https://…, below which the pictures of docs/ are found")
if(ZELMO_PAGE)
    set(pageElements "  <url type=\"homepage\">${ZELMO_PAGE}</url>
  <screenshots>
    <screenshot type=\"default\">
      <caption>The wall over the blurred desktop</caption>
      <image type=\"source\">${ZELMO_PAGE}/docs/wall/blur-1920.jpg</image>
    </screenshot>
    <screenshot>
      <caption>Coloured tiles</caption>
      <image type=\"source\">${ZELMO_PAGE}/docs/wall/tiles-3840at2.jpg</image>
    </screenshot>
    <screenshot>
      <caption>The settings</caption>
      <image type=\"source\">${ZELMO_PAGE}/docs/settings/appearance-light@2x.jpg</image>
    </screenshot>
  </screenshots>
")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/org.zelmo.Zelmo.metainfo.xml.in
    ${CMAKE_CURRENT_BINARY_DIR}/org.zelmo.Zelmo.metainfo.xml @ONLY)
