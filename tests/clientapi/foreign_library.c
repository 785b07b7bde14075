/* A library that bears the name of the broker's and is another: it has no factory. */
int _sfcb_trace_mask = -1;
