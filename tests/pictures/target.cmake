# The page and its figures as the tool makes them, and drawings by themselves.
target_link_libraries(test_pictures PRIVATE ovri_pictures ovri_study)
