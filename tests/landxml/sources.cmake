# The tests of the LandXML readers.
target_sources(quelcnv_tests PRIVATE landxml/sax_events_test.cpp)
target_sources(quelcnv_tests PRIVATE landxml/landxml_readers_test.cpp)
target_sources(quelcnv_tests PRIVATE landxml/landxml_writer_test.cpp)
target_sources(quelcnv_tests PRIVATE landxml/landxml_round_trip_test.cpp)
