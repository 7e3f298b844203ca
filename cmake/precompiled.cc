// Makes a target of the headers that others are compiled with.
