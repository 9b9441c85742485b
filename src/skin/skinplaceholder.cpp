// The skin library grows here.
