# Tests of the printer program: of its parts, and of the built program.

driver_feature_test(server_tests GLOB host/server/*_test.cc LINK host_server)
