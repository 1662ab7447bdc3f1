#include "words.hpp"

namespace vellix::demo {

Book theLongLetter() {
  return {
      .id = "letter",
      .title = "The Long Letter",
      .titleLines = {"The Long", "Letter"},
      .author = "Maud Verrinder",
      .tagline = "A novel in one envelope",
      .blurb =
          "My dear Augustin, I meant to write you a line. So begins a letter that goes on for "
          "nineteen years, through two houses, one war, a great many puddings and a silence that "
          "neither of them can afterwards explain. It was never posted. It has been read, in "
          "this family, by everybody else.",
      .quote = "“I laughed until the last page, and then I read the last page.”",
      .isbn = "9799000005603",
      .chapters = {"My Dear Augustin", "By the Second Post"},
      .opening =
          {"My dear Augustin, I meant to write you a line. You will say that I have never in my "
           "life written a line, and that what I call a line other people call an afternoon; but "
           "the rain has come in over the Dene, the girl has gone to her sister, and there is "
           "nobody to interrupt me but the clock.",
           "You asked about the house. It stands. The east gutter has gone to live in the "
           "rosebed, and the bell in the hall now rings in the scullery, so that visitors are "
           "announced to the potatoes. I have grown used to it. I find that one can grow used to "
           "anything that happens at the same time each day.",
           "Yesterday I found your gloves. They were in the piano, where I suppose you put them "
           "so as not to forget them. I tried on the left. It still has the shape of your "
           "thinking about something else.",
           "I shall tell you everything in order, and since I have forgotten the order I shall "
           "begin with the goose. You will remember that we had been promised a goose. You will "
           "remember by whom. What you cannot know, for I did not tell you and the goose is no "
           "longer in a position to, is what was tied around its neck."},
      .stock =
          {"{when} {who} called, stayed for an hour, and left us in possession of {thing}.",
           "I do not complain; I merely put it on paper where you can find it.",
           "“She will never marry him,” said {who}, “for he has told her that she will.”",
           "The pudding was sent back from {where} with a note pinned to it.",
           "You would have laughed, and I should have had to look out of the window.",
           "{who} has taken up the flute, and {where} is not far enough away.",
           "I enclose {thing}, which you need not return, and a question, which you must.",
           "There is a draught in this house that has been here longer than we have and means to "
           "be consulted.",
           "{when} I sat down to tell you the truth, and the ink was frozen.",
           "Nothing has happened here since I began this sentence, except that {who} has come in "
           "and gone out again.",
           "I have put {thing} in your room, so that it should not be quite so empty of me.",
           "They say at {where} that you are well. I had hoped for something more particular.",
           "“One does not ask,” I told {who}, and then of course I asked.",
           "Twice I have walked this letter as far as the post, and twice it has walked me home.",
           "My hand is tired, but it is only the hand.",
           "{when} the whole of {where} was under water, and I thought of your boots.",
           "You were always the one who knew what to do with {thing}.",
           "It is a great thing to be forgiven, though one would like to be told for what.",
           "I have crossed out four lines here. You may hold them to the light; I have made very "
           "sure of them.",
           "If this reaches you before I finish it, do not answer yet."},
      .who = {"Cousin Philippa", "the curate", "Mrs Ormery", "your brother", "Doctor Tisk"},
      .where = {"the Dene", "the lower house", "the vicarage", "the music room", "Garrow Lane"},
      .thing = {"a jar of quinces", "your left glove", "the bad umbrella", "half a seed cake",
                "the garden key"},
      .when = {"On Sunday", "At a quarter past four", "The day after the goose",
               "Towards the end of Lent", "In your absence"}};
}

Book fieldNotesForRain() {
  return {
      .id = "rain",
      .title = "Field Notes for Rain",
      .titleLines = {"Field Notes", "for Rain"},
      .author = "Tove Lindqvist Amar",
      .tagline = "A year of weather, observed on foot",
      .blurb =
          "There are, the author maintains, forty-one kinds of rain, and most people have met "
          "only three of them. For a year she walked out into every one, with a notebook, a "
          "pencil and a succession of unsuitable hats. Part almanac and part love letter, this "
          "is a book to keep in a coat.",
      .quote = "“I have been caught without an umbrella on purpose ever since.”",
      .isbn = "9799000006709",
      .chapters = {"Kinds of Rain", "The Long Drizzle of May"},
      .opening =
          {"The first kind is the rain that has not made up its mind. It hangs. You cannot hear "
           "it and you cannot, strictly, see it, but the sleeve of your coat goes from grey to "
           "dark grey, and a spider’s web that you had not noticed is suddenly the most "
           "expensive thing in the hedge.",
           "I stood in it for an hour on the fourth of January, by the gate above the mill. Wind "
           "none. Birds, two, both complaining. At the end of the hour I had a quarter of an inch "
           "in the bottom of the jar and had been asked by three separate people whether I was "
           "all right.",
           "The second kind falls straight. It is the rain that children draw. It comes down in "
           "pins, it bounces, and it has a top and a bottom; you can walk out from under the edge "
           "of it as you would from under a shelf. It never lasts. A rain like that is only "
           "passing through on its way to somewhere with a view.",
           "The third is the one that everyone means when they say rain. I shall not describe it. "
           "You are very probably looking at it now."},
      .stock =
          {"{when} I walked from {where} to the bridge and was wet through by the second stile.",
           "Note: the smell comes before the sound, and the sound before the drop.",
           "{who} says that it never rains on a Tuesday here, and has said so on three wet "
           "Tuesdays.",
           "Pencil writes in the rain; ink only reports that it has been there.",
           "At {where} the gutter sang one note all morning, a little flat.",
           "A puddle is a lake with no ambition.",
           "{when} the cloud came down as far as {where} and stayed for its dinner.",
           "I held out {thing} and counted: nine drops, then none, then all of them at once.",
           "“You get used to it,” said {who}, from under a door.",
           "There is a rain that only falls from trees, an hour after the sky has finished.",
           "Under {thing} it sounds like applause from people who are thinking of something else.",
           "Snails, fourteen; umbrellas, two, one of them inside out; hats, mine.",
           "{who} lent me {thing}, which let in the weather but did so fairly.",
           "Wind south and light. Everything that could drip, dripped.",
           "{when} the whole slope below {where} moved a hand’s breadth downhill and lay still.",
           "I wrote down the time, and the rain took it off the page again.",
           "Sun, for a minute, and every leaf with its own small lamp.",
           "The stream at {where} was talking so fast that I missed most of it.",
           "To stay dry is easy; what is difficult is to stay interested.",
           "{who} leaves a bowl out on the wall and will not say for whom."},
      .who = {"the farmer’s son", "a man mending a wall", "the woman at the ferry", "my neighbour",
              "the lock keeper"},
      .where = {"the upper gate", "Sallow Bridge", "the beech hanger", "the long meadow",
                "the mill race"},
      .thing = {"the tin bucket", "an open hand", "the third hat", "a sheet of slate",
                "the borrowed umbrella"},
      .when = {"At first light", "On the ninth of May", "Half an hour after noon",
               "Between two showers", "In the second week"}};
}

}  // namespace vellix::demo
